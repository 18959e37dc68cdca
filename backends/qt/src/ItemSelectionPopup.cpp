#include "TxalQt/ItemSelectionPopup.hpp"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "IconCache.hpp"
#include "InputScope.hpp"
#include "Rb/AutoClosingSingleItemSelectionDialog.hpp"
#include "Strings.hpp"
#include "Theme.hpp"
#include "Wg/Icon.hpp"

namespace TxalQt {

namespace {

constexpr int IconSize = 16;
constexpr int IndentPerLevel = 16;
constexpr int TriangleSize = 8;
constexpr int Padding = 6;
constexpr int SearchHeight = 26;
constexpr int InformationHeight = 24;
// The popup's own frame and the space between its parts.
constexpr int Chrome = 2 * Padding + SearchHeight + Padding;
constexpr int MinimumVisibleRows = 3;

}   // namespace

// The rows of the session, painted and clicked.
class ItemSelectionRows : public QWidget {
public:
    explicit ItemSelectionRows (ItemSelectionPopup& popup) : QWidget (&popup), popup (popup) { setMouseTracking (true); }

    int  GetFirstRow () const { return first; }
    void SetFirstRow (int row)
    {
        first = std::max (0, row);
        update ();
    }
    int VisibleRowCount () const { return std::max (1, height () / ItemSelectionPopup::RowHeight); }
    // Scrolls so that the 1-based row shows.
    void Reveal (int row)
    {
        if (row <= 0) return;
        if (row - 1 < first) first = row - 1;
        if (row > first + VisibleRowCount ()) first = row - VisibleRowCount ();
        update ();
    }

protected:
    void paintEvent (QPaintEvent*) override
    {
        QPainter painter (this);
        painter.fillRect (rect (), Theme::BaseColor);
        const auto& rows = popup.session.GetRows ();
        const QFontMetrics metrics (font ());
        QFont bold = font ();
        bold.setBold (true);
        const bool results = popup.session.IsShowingResults ();
        for (int i = first; i < static_cast<int> (rows.size ()) && (i - first) * ItemSelectionPopup::RowHeight < height (); ++i) {
            const auto& row = rows[static_cast<std::size_t> (i)];
            const QRect line (0, (i - first) * ItemSelectionPopup::RowHeight, width (), ItemSelectionPopup::RowHeight);
            const bool highlighted = i + 1 == popup.session.GetHighlightedRow ();
            if (highlighted) painter.fillRect (line, Theme::AccentLightColor);
            else if (i + 1 == hovered) painter.fillRect (line, Theme::HoverColor);

            int x = Padding + row.level * IndentPerLevel;
            if (!results && row.isGroup) {
                const QPointF centre (x + TriangleSize / 2.0, line.center ().y () + 0.5);
                QPolygonF triangle;
                if (row.expanded)
                    triangle << QPointF (centre.x () - 4, centre.y () - 2) << QPointF (centre.x () + 4, centre.y () - 2) << QPointF (centre.x (), centre.y () + 3);
                else
                    triangle << QPointF (centre.x () - 2, centre.y () - 4) << QPointF (centre.x () - 2, centre.y () + 4) << QPointF (centre.x () + 3, centre.y ());
                painter.setRenderHint (QPainter::Antialiasing, true);
                painter.setPen (Qt::NoPen);
                painter.setBrush (Theme::SecondaryInkColor);
                painter.drawPolygon (triangle);
                painter.setRenderHint (QPainter::Antialiasing, false);
            }
            if (!results) x += TriangleSize + 4;
            if (!row.icon.IsEmpty ()) {
                const QPixmap pixmap = IconCache::Get ().GetPixmap (row.icon, QSize (IconSize, IconSize), devicePixelRatioF ());
                painter.drawPixmap (QRect (x, line.top () + (line.height () - IconSize) / 2, IconSize, IconSize), pixmap);
                x += IconSize + 4;
            }

            // The text, with the matched part on a light accent and in bold.
            const QString text = ToQString (row.text);
            const int baseline = line.top () + (line.height () + metrics.ascent () - metrics.descent ()) / 2;
            painter.setPen (Theme::InkColor);
            if (row.matchBegin != std::u16string::npos && row.matchBegin + row.matchLength <= static_cast<std::size_t> (text.size ())) {
                const QString before = text.left (static_cast<int> (row.matchBegin));
                const QString match = text.mid (static_cast<int> (row.matchBegin), static_cast<int> (row.matchLength));
                const QString after = text.mid (static_cast<int> (row.matchBegin + row.matchLength));
                painter.setFont (font ());
                painter.drawText (x, baseline, before);
                x += metrics.horizontalAdvance (before);
                const QFontMetrics boldMetrics (bold);
                const int matchWidth = boldMetrics.horizontalAdvance (match);
                painter.fillRect (QRect (x, line.top () + 3, matchWidth, line.height () - 6), Theme::AccentLightColor.darker (112));
                painter.setFont (bold);
                painter.drawText (x, baseline, match);
                x += matchWidth;
                painter.setFont (font ());
                painter.drawText (x, baseline, after);
                x += metrics.horizontalAdvance (after);
            } else {
                painter.setFont (font ());
                painter.drawText (x, baseline, text);
                x += metrics.horizontalAdvance (text);
            }
            if (!row.path.IsEmpty ()) {
                painter.setPen (Theme::GreyedInkColor);
                const QString path = metrics.elidedText (ToQString (row.path), Qt::ElideLeft, std::max (0, width () - x - 2 * Padding));
                painter.drawText (QRect (x + Padding, line.top (), width () - x - 2 * Padding, line.height ()), Qt::AlignRight | Qt::AlignVCenter,
                                  path);
            }
        }
        if (rows.empty ()) {
            painter.setPen (Theme::GreyedInkColor);
            painter.drawText (rect ().adjusted (Padding, 0, -Padding, 0), Qt::AlignLeft | Qt::AlignTop, results ? "No matches" : "");
        }
    }

    void mouseMoveEvent (QMouseEvent* event) override
    {
        const int row = RowAt (event->position ().toPoint ());
        if (row != hovered) {
            hovered = row;
            update ();
        }
    }
    void leaveEvent (QEvent*) override
    {
        hovered = 0;
        update ();
    }
    void mouseReleaseEvent (QMouseEvent* event) override
    {
        const int row = RowAt (event->position ().toPoint ());
        if (row == 0) return;
        const auto& rows = popup.session.GetRows ();
        const auto& target = rows[static_cast<std::size_t> (row - 1)];
        const int triangleEnd = Padding + target.level * IndentPerLevel + TriangleSize + 4;
        if (!popup.session.IsShowingResults () && target.isGroup && event->position ().x () < triangleEnd) {
            const InputScope scope;
            popup.session.SetRowExpanded (row, !target.expanded);
            popup.Refresh ();
            return;
        }
        popup.Pick (row);
    }
    void wheelEvent (QWheelEvent* event) override
    {
        const int steps = event->angleDelta ().y () / 120;
        popup.scrollBar->setValue (popup.scrollBar->value () - 3 * steps);
    }

private:
    int RowAt (const QPoint& point) const
    {
        if (!rect ().contains (point)) return 0;
        const int row = first + point.y () / ItemSelectionPopup::RowHeight + 1;
        return row <= static_cast<int> (popup.session.GetRows ().size ()) ? row : 0;
    }

    ItemSelectionPopup& popup;
    int                 first = 0;
    int                 hovered = 0;
};

ItemSelectionPopup::ItemSelectionPopup (Rb::AutoClosingSingleItemSelectionDialog& session, QWidget* parent)
    : QWidget (parent, Qt::Popup), session (session)
{
    setAttribute (Qt::WA_DeleteOnClose, false);
    setFont (Theme::GetFont (Gfx::PlainFont));
    setAutoFillBackground (true);
    QPalette colours = palette ();
    colours.setColor (QPalette::Window, Theme::WindowColor);
    setPalette (colours);

    auto* layout = new QVBoxLayout (this);
    layout->setContentsMargins (Padding, Padding, Padding, Padding);
    layout->setSpacing (Padding);
    search = new QLineEdit (this);
    search->setPlaceholderText (ToQString (session.GetSearchHintText ()));
    search->setClearButtonEnabled (true);
    search->setFixedHeight (SearchHeight);
    search->setText (ToQString (session.GetSearchText ()));
    search->installEventFilter (this);
    layout->addWidget (search);

    auto* body = new QHBoxLayout ();
    body->setSpacing (0);
    rows = new ItemSelectionRows (*this);
    scrollBar = new QScrollBar (Qt::Vertical, this);
    body->addWidget (rows, 1);
    body->addWidget (scrollBar);
    layout->addLayout (body, 1);
    QObject::connect (scrollBar, &QScrollBar::valueChanged, rows, [this] (int value) { rows->SetFirstRow (value); });

    if (session.HasInformation ()) {
        information = new QWidget (this);
        auto* line = new QHBoxLayout (information);
        line->setContentsMargins (0, 0, 0, 0);
        auto* icon = new QLabel (information);
        if (!session.GetInformationIcon ().IsEmpty ())
            icon->setPixmap (IconCache::Get ().GetPixmap (session.GetInformationIcon (), QSize (IconSize, IconSize), devicePixelRatioF ()));
        auto* text = new QLabel (ToQString (session.GetInformationText ()), information);
        text->setWordWrap (true);
        QPalette textColours = text->palette ();
        textColours.setColor (QPalette::WindowText, Theme::SecondaryInkColor);
        text->setPalette (textColours);
        line->addWidget (icon);
        line->addWidget (text, 1);
        information->setFixedHeight (InformationHeight);
        layout->addWidget (information);
    }

    QObject::connect (search, &QLineEdit::textEdited, this, [this] (const QString& text) {
        const InputScope scope;
        this->session.SetSearchText (ToUniString (text));
        Refresh ();
    });
    Refresh ();
}

ItemSelectionPopup::~ItemSelectionPopup () = default;

void ItemSelectionPopup::TypeSearchText (const QString& text)
{
    for (const QChar ch : text) {
        search->setText (search->text () + ch);
        const InputScope scope;
        session.SetSearchText (ToUniString (search->text ()));
    }
    Refresh ();
}

void ItemSelectionPopup::Refresh ()
{
    UpdateGeometry ();
    const int count = static_cast<int> (session.GetRows ().size ());
    scrollBar->setRange (0, std::max (0, count - rows->VisibleRowCount ()));
    scrollBar->setPageStep (rows->VisibleRowCount ());
    rows->Reveal (session.GetHighlightedRow ());
    scrollBar->setValue (rows->GetFirstRow ());
    scrollBar->setVisible (count > rows->VisibleRowCount ());
    rows->update ();
}

void ItemSelectionPopup::UpdateGeometry ()
{
    const int count = static_cast<int> (session.GetRows ().size ());
    const int extra = Chrome + (information != nullptr ? InformationHeight + Padding : 0);
    const int wanted = extra + std::max (MinimumVisibleRows, count) * RowHeight;
    const int height = std::min (wanted, std::max (static_cast<int> (session.GetMaximumHeight ()), extra + MinimumVisibleRows * RowHeight));
    // Only grows while open, so that the popup does not jump under the pointer as the user types.
    const int newHeight = isVisible () ? std::max (height, this->height ()) : height;
    resize (Width, newHeight);
    if (layout () != nullptr) layout ()->activate ();
}

bool ItemSelectionPopup::eventFilter (QObject* watched, QEvent* event)
{
    if (watched == search && event->type () == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*> (event);
        const InputScope scope;
        switch (key->key ()) {
            case Qt::Key_Up:
                session.MoveHighlight (-1);
                Refresh ();
                return true;
            case Qt::Key_Down:
                session.MoveHighlight (+1);
                Refresh ();
                return true;
            case Qt::Key_Return:
            case Qt::Key_Enter:
                Pick (session.GetHighlightedRow ());
                return true;
            case Qt::Key_Escape:
                Cancel ();
                return true;
            default:
                break;
        }
    }
    return QWidget::eventFilter (watched, event);
}

void ItemSelectionPopup::Pick (int row)
{
    {
        const InputScope scope;
        session.PickRow (row);
    }
    if (session.HasEnded ()) Finish ();
}

void ItemSelectionPopup::Cancel ()
{
    {
        const InputScope scope;
        session.CancelByUser ();
    }
    Finish ();
}

void ItemSelectionPopup::Finish ()
{
    hide ();
    if (loop.isRunning ()) loop.quit ();
}

void ItemSelectionPopup::hideEvent (QHideEvent* event)
{
    QWidget::hideEvent (event);
    // A click outside closes the popup: that is a cancel.
    if (!session.HasEnded ()) {
        const InputScope scope;
        session.CancelByUser ();
    }
    if (loop.isRunning ()) loop.quit ();
}

void ItemSelectionPopup::Exec (const QPoint& position)
{
    Refresh ();
    move (position);
    show ();
    search->setFocus (Qt::PopupFocusReason);
    if (!session.HasEnded ()) loop.exec ();
}

}   // namespace TxalQt
