#include "Theme.hpp"

#include <QApplication>
#include <QFontMetricsF>
#include <QHash>
#include <array>
#include <cmath>

#include "Gfx/TextMetrics.hpp"

namespace TxalQt::Theme {

namespace {

// Widths of recent texts per style; the model measures every cell it paints.
constexpr qsizetype MaxCachedWidths = 8192;
constexpr int StyleVariants = 4;   // plain, bold, italic, bold italic

int VariantOf (int fontStyle)
{
    return ((fontStyle & Gfx::BoldFont) != 0 ? 1 : 0) + ((fontStyle & Gfx::ItalicFont) != 0 ? 2 : 0);
}

struct FontSet {
    std::array<QFont, StyleVariants>                fonts;
    std::array<QFontMetricsF, StyleVariants>        metrics {QFontMetricsF (QFont ()), QFontMetricsF (QFont ()),
                                                             QFontMetricsF (QFont ()), QFontMetricsF (QFont ())};
    std::array<QHash<QString, int>, StyleVariants>  widths;
    QFont                                           header;
    QString                                         family;
};

FontSet& GetFonts ()
{
    static FontSet set;
    // The application's font family, sized in logical pixels; made anew when the family changes.
    const QString family = QApplication::font ().family ();
    if (set.family != family || set.family.isEmpty ()) {
        set.family = family;
        for (int variant = 0; variant < StyleVariants; ++variant) {
            QFont font (family);
            font.setPixelSize (FontPixelSize);
            font.setBold ((variant & 1) != 0);
            font.setItalic ((variant & 2) != 0);
            set.fonts[static_cast<std::size_t> (variant)] = font;
            set.metrics[static_cast<std::size_t> (variant)] = QFontMetricsF (font);
            set.widths[static_cast<std::size_t> (variant)].clear ();
        }
        set.header = QFont (family);
        set.header.setPixelSize (HeaderFontPixelSize);
    }
    return set;
}

int measurerUsers = 0;
Gfx::TextMeasurer previousMeasurer;

}   // namespace

const QFont& GetFont (int fontStyle)
{
    return GetFonts ().fonts[static_cast<std::size_t> (VariantOf (fontStyle))];
}

const QFont& GetHeaderFont ()
{
    return GetFonts ().header;
}

int MeasureWidth (const QString& text, int fontStyle)
{
    FontSet& set = GetFonts ();
    const auto variant = static_cast<std::size_t> (VariantOf (fontStyle));
    QHash<QString, int>& cache = set.widths[variant];
    const auto found = cache.constFind (text);
    if (found != cache.constEnd ()) return found.value ();
    if (cache.size () >= MaxCachedWidths) cache.clear ();
    // Rounded up, so that a text measured as fitting is never elided when painted.
    const int width = static_cast<int> (std::ceil (set.metrics[variant].horizontalAdvance (text)));
    cache.insert (text, width);
    return width;
}

QString GetPeerStyleSheet ()
{
    return QStringLiteral (
        "QLineEdit { background: #FFFFFF; color: #1F2933; border: 1px solid #B9C2CC; border-radius: 2px;"
        "  padding: 0px 1px; selection-background-color: #2B78C5; selection-color: #FFFFFF; }"
        "QLineEdit:focus { border-color: #2B78C5; }"
        "QLineEdit:disabled { background: #F1F3F5; color: #9AA4AF; border-color: #D6DBE1; }"
        "QLineEdit[txalOnTab=\"true\"] { border: 1px solid #2B78C5; border-radius: 0px; padding: 0px; }"
        "QLineEdit[txalOnTab=\"true\"]:disabled { border-color: #D6DBE1; }"
        "QSlider::groove:horizontal { height: 4px; background: #D6DBE1; border-radius: 2px; }"
        "QSlider::sub-page:horizontal { background: #2B78C5; border-radius: 2px; }"
        "QSlider::sub-page:horizontal:disabled { background: #B9C2CC; }"
        "QSlider::handle:horizontal { width: 12px; margin: -5px 0px; border-radius: 7px;"
        "  background: #FFFFFF; border: 1px solid #2B78C5; }"
        "QSlider::handle:horizontal:hover { background: #CFE2F5; }"
        "QSlider::handle:horizontal:disabled { border-color: #B9C2CC; }"
        "QSlider::groove:vertical { width: 4px; background: #D6DBE1; border-radius: 2px; }"
        "QSlider::add-page:vertical { background: #2B78C5; border-radius: 2px; }"
        "QSlider::handle:vertical { height: 12px; margin: 0px -5px; border-radius: 7px;"
        "  background: #FFFFFF; border: 1px solid #2B78C5; }"
        "QCheckBox { color: #1F2933; spacing: 5px; }"
        "QCheckBox:disabled { color: #9AA4AF; }"
        "QScrollBar:vertical { background: #F4F5F7; width: 16px; margin: 0px; border: none; border-left: 1px solid #E3E7EB; }"
        "QScrollBar::handle:vertical { background: #C3CAD2; min-height: 24px; border-radius: 3px; margin: 2px 4px 2px 4px; }"
        "QScrollBar::handle:vertical:hover { background: #A3ADB8; }"
        "QScrollBar::handle:vertical:pressed { background: #8A96A3; }"
        "QScrollBar::handle:vertical:disabled { background: transparent; }"
        "QScrollBar::add-line:vertical, QScrollBar::sub-line:vertical { height: 0px; border: none; background: none; }"
        "QScrollBar::add-page:vertical, QScrollBar::sub-page:vertical { background: none; }"
        "QLabel { color: #1F2933; }"
        "QLabel:disabled { color: #9AA4AF; }");
}

void AcquireTextMeasurer ()
{
    if (measurerUsers++ > 0) return;
    previousMeasurer = Gfx::SetTextMeasurer ([] (const Kor::UniString& text, int fontStyle) {
        const std::u16string& units = text.GetUtf16 ();
        const QString string = QString::fromUtf16 (units.data (), static_cast<qsizetype> (units.size ()));
        Gfx::TextMetrics metrics;
        metrics.width = MeasureWidth (string, fontStyle);
        metrics.height = static_cast<int> (std::ceil (GetFonts ().metrics[static_cast<std::size_t> (VariantOf (fontStyle))].height ()));
        return metrics;
    });
}

void ReleaseTextMeasurer ()
{
    if (measurerUsers == 0 || --measurerUsers > 0) return;
    Gfx::SetTextMeasurer (previousMeasurer);
    previousMeasurer = nullptr;
}

bool IsTextMeasurerInstalled ()
{
    return measurerUsers > 0;
}

}   // namespace TxalQt::Theme
