// The workloads on a QTreeWidget built as a Qt user builds a property list: categories as
// top-level items, typed values in the second column, a delegate that edits each kind with its
// own editor (bounded spin boxes, a combo box of the choices, a line edit, a check box).

#include <QApplication>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QImage>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSpinBox>
#include <QStyledItemDelegate>
#include <QTreeWidget>
#include <string>
#include <vector>

#include "PeerWorkload.hpp"

namespace {

using namespace Peers;

constexpr int WindowWidth = 600;
constexpr int WindowHeight = 800;
constexpr int NameWidth = 300;
constexpr int KindRole = Qt::UserRole;
constexpr int MinRole = Qt::UserRole + 1;
constexpr int MaxRole = Qt::UserRole + 2;
constexpr int ChoicesRole = Qt::UserRole + 3;

class PaintCounter : public QObject {
public:
    int paints = 0;

protected:
    bool eventFilter (QObject* watched, QEvent* event) override
    {
        if (event->type () == QEvent::Paint) ++paints;
        return QObject::eventFilter (watched, event);
    }
};

// Edits each kind with a bounded editor, as the item data describe it.
class PropertyDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor (QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        switch (static_cast<Kind> (index.data (KindRole).toInt ())) {
            case Kind::Int: {
                auto* spin = new QSpinBox (parent);
                spin->setRange (index.data (MinRole).toInt (), index.data (MaxRole).toInt ());
                return spin;
            }
            case Kind::Real: {
                auto* spin = new QDoubleSpinBox (parent);
                spin->setRange (index.data (MinRole).toDouble (), index.data (MaxRole).toDouble ());
                return spin;
            }
            case Kind::Choice: {
                auto* combo = new QComboBox (parent);
                combo->addItems (index.data (ChoicesRole).toStringList ());
                return combo;
            }
            default: return QStyledItemDelegate::createEditor (parent, option, index);
        }
    }
};

QStringList Choices ()
{
    QStringList choices;
    for (int i = 0; i < ChoiceCount; ++i) choices << ChoiceName (i);
    return choices;
}

QTreeWidgetItem* MakeProperty (int property, const QStringList& choices)
{
    auto* item = new QTreeWidgetItem ({QString::fromStdString (PropertyName (property))});
    const Kind kind = KindOf (property);
    item->setData (1, KindRole, static_cast<int> (kind));
    item->setFlags (item->flags () | Qt::ItemIsEditable);
    switch (kind) {
        case Kind::Text: item->setData (1, Qt::EditRole, QStringLiteral ("Exterior wall")); break;
        case Kind::Int:
            item->setData (1, Qt::EditRole, property % IntMax);
            item->setData (1, MinRole, IntMin);
            item->setData (1, MaxRole, IntMax);
            break;
        case Kind::Real:
            item->setData (1, Qt::EditRole, 0.5);
            item->setData (1, MinRole, RealMin);
            item->setData (1, MaxRole, RealMax);
            break;
        case Kind::Check:
            item->setFlags ((item->flags () | Qt::ItemIsUserCheckable) & ~Qt::ItemIsEditable);
            item->setCheckState (1, property % 2 == 0 ? Qt::Checked : Qt::Unchecked);
            break;
        case Kind::Choice:
            item->setData (1, Qt::EditRole, choices[property % ChoiceCount]);
            item->setData (1, ChoicesRole, choices);
            break;
    }
    return item;
}

int Run (int rows)
{
    QTreeWidget tree;
    tree.resize (WindowWidth, WindowHeight);
    tree.setColumnCount (2);
    tree.setHeaderLabels ({QStringLiteral ("Property"), QStringLiteral ("Value")});
    tree.setColumnWidth (0, NameWidth);
    tree.setUniformRowHeights (true);
    tree.setItemDelegate (new PropertyDelegate (&tree));
    tree.show ();
    PaintCounter counter;
    tree.viewport ()->installEventFilter (&counter);
    QApplication::processEvents ();

    const QStringList choices = Choices ();
    const int realTarget = MiddleProperty (rows, Kind::Real);
    const int textTarget = MiddleProperty (rows, Kind::Text);
    QTreeWidgetItem* real = nullptr;
    QTreeWidgetItem* text = nullptr;

    // --- Populate, and the heap it holds ---
    const std::size_t heapBefore = HeapInUse ();
    const long faultsBefore = MinorFaults ();
    auto populate = [&] {
        tree.setUpdatesEnabled (false);
        QList<QTreeWidgetItem*> groups;
        QFont bold = tree.font ();
        bold.setBold (true);
        for (int property = 0; property < rows; ++property) {
            if (property % PropertiesPerGroup == 0) {
                auto* group = new QTreeWidgetItem ({QString::fromStdString (GroupName (property / PropertiesPerGroup))});
                group->setFont (0, bold);
                group->setFirstColumnSpanned (false);
                groups.append (group);
            }
            QTreeWidgetItem* item = MakeProperty (property, choices);
            groups.back ()->addChild (item);
            if (property == realTarget) real = item;
            if (property == textTarget) text = item;
        }
        tree.addTopLevelItems (groups);
        for (QTreeWidgetItem* group : groups) group->setFirstColumnSpanned (true);
        tree.expandAll ();
        tree.setUpdatesEnabled (true);
        QApplication::processEvents ();
    };
    const double populateUs = CpuMicroseconds (populate);
    const std::size_t heapAfter = HeapInUse ();
    const long faults = MinorFaults () - faultsBefore;
    Check (tree.topLevelItemCount () == GroupCount (rows) && real != nullptr && text != nullptr, "populate made the wrong tree");
    Print ("populate", populateUs * 1000.0 / rows);
    Print ("memory", static_cast<double> (heapAfter - heapBefore) / rows);
    Print ("faults", static_cast<double> (faults) / rows);

    // --- One value set by the program in the middle of the list, and shown ---
    tree.scrollToItem (real, QAbstractItemView::PositionAtCenter);
    QApplication::processEvents ();
    int step = 0;
    const int paintsBefore = counter.paints;
    Print ("change", MedianMicroseconds (SmallRepeats, [&] {
        real->setData (1, Qt::EditRole, 1.0 + (++step % 2));
        QApplication::processEvents ();
    }));
    Check (real->data (1, Qt::EditRole).toDouble () == 1.0 + (step % 2), "the value does not read back");
    Check (counter.paints >= paintsBefore + SmallRepeats, "a change was not painted");

    // --- The user types one character into a text value and confirms; the program hears it ---
    // The view tells the program of an edit only when it is committed: a keystroke alone
    // reaches no observer, so each timing is a keystroke and Return.
    int changes = 0;
    QObject::connect (&tree, &QTreeWidget::itemChanged, [&] (QTreeWidgetItem* item, int) {
        if (item == text) ++changes;
    });
    tree.scrollToItem (text, QAbstractItemView::PositionAtCenter);
    std::vector<double> times;
    for (int i = 0; i < SmallRepeats; ++i) {
        tree.editItem (text, 1);
        auto* editor = qobject_cast<QLineEdit*> (QApplication::focusWidget ());
        if (editor == nullptr) editor = tree.viewport ()->findChild<QLineEdit*> ();
        Check (editor != nullptr, "no editor opened");
        // A text other than the last one committed, so that every commit is a change.
        editor->setText (i % 2 == 0 ? QStringLiteral ("Wall") : QStringLiteral ("Door"));
        times.push_back (Microseconds ([&] {
            QKeyEvent key (QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral ("a"));
            QApplication::sendEvent (editor, &key);
            QKeyEvent enter (QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
            QApplication::sendEvent (editor, &enter);
            QApplication::processEvents ();
        }));
    }
    std::nth_element (times.begin (), times.begin () + SmallRepeats / 2, times.end ());
    Print ("edit", times[SmallRepeats / 2]);
    Check (changes == SmallRepeats && text->text (1) == QStringLiteral ("Walla"),
           "the edits did not reach the item: " + std::to_string (changes) + " " + text->text (1).toStdString ());

    NotApplicable ("refresh", "its items are the view's data: there is nothing to rebuild them from");

    // --- One screen painted ---
    QImage frame (tree.size (), QImage::Format_ARGB32_Premultiplied);
    const int paintsBeforeFrame = counter.paints;
    Print ("paint", MedianCpuMicroseconds (LargeRepeats, [&] { tree.render (&frame); }) / 1000.0);
    Check (counter.paints >= paintsBeforeFrame + LargeRepeats, "the screen was not painted");

    // --- All groups collapsed, then expanded; the layout is made at once, not lazily ---
    Print ("collapse", MedianCpuMicroseconds (LargeRepeats, [&] {
              tree.collapseAll ();
              tree.doItemsLayout ();
              tree.expandAll ();
              tree.doItemsLayout ();
              QApplication::processEvents ();
          }) / 1000.0);
    Check (tree.topLevelItem (0)->isExpanded (), "expanding left a group collapsed");

    // --- Populated again after clearing, as a palette is for every new selection ---
    tree.clear ();
    QApplication::processEvents ();
    Print ("repopulate", CpuMicroseconds (populate) * 1000.0 / rows);
    Check (tree.topLevelItemCount () == GroupCount (rows), "repopulate made the wrong tree");
    return 0;
}

}   // namespace

int main (int argc, char** argv)
{
    qputenv ("QT_QPA_PLATFORM", "offscreen");
    QApplication application (argc, argv);
    return Run (ParseRows (argc, argv));
}
