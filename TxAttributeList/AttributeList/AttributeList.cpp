// AttributeList: construction, parameters, columns and layout. Rows and refresh live in
// AttributeListRows.cpp, events, focus and keyboard in AttributeListEditing.cpp.

#include "TxAttributeList/AttributeList.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "AttributeListRegistry.hpp"
#include "Kor/Assert.hpp"
#include "Rb/ListBoxHelpers.hpp"
#include "TxAttributeList/OnTabItems.hpp"

namespace TxAL {

namespace {

constexpr const char* AssertPrefix = "TxAL error";
constexpr const char* SourceFile = "AttributeList";

constexpr short GroupColumnWidth = 20;
constexpr short HeaderHeight = 18;
constexpr short MinimumRowHeight = 19;
constexpr short HelpStyleToolTips = 1;
constexpr short ColumnCount = 6;
// Fixed widths paid before the label and value columns share the rest: preview and check.
constexpr short FixedColumnsWidth = AttributeList::PreviewColumnSize + AttributeList::CheckColumnSize;
// With an own header, the value header item spans value, preview and check columns.
constexpr short OwnHeaderValueMinSize = 160;

// The host's column formatting codes.
constexpr short JustifyLeft = 0;
constexpr short JustifyCenter = 256;
constexpr short TruncateEnd = 4096;

// Layout arithmetic is 16-bit on purpose; doubles are clamped before they become shorts.
short ToShort (double value)
{
    if (std::isnan (value)) return 0;
    value = std::clamp (value, static_cast<double> (std::numeric_limits<short>::min ()), static_cast<double> (std::numeric_limits<short>::max ()));
    return static_cast<short> (value);
}

short Add (int a, int b)
{
    return static_cast<short> (a + b);
}

}   // namespace

// --- Observer defaults ---

void AttributeListObserver::AttributeListRequiredHeightChanged (const AttributeList&) {}
void AttributeListObserver::AttributeListSelectionChanged (const AttributeList&) {}
void AttributeListObserver::AttributeListOverlayUpdate (const AttributeList&) {}

// --- Construction ---

AttributeList::AttributeList (const Wg::Panel& panel, short itemId, const OptionalParameters& params)
    : AttributeList (panel, true, dynamic_cast<Wg::ListBox*> (panel.GetItem (itemId)), Wg::Rect (), params)
{
}

AttributeList::AttributeList (const Wg::Panel& panel, short itemId) : AttributeList (panel, itemId, OptionalParameters ()) {}

AttributeList::AttributeList (const Wg::Panel& panel, short x, short y, short width, short height)
    : AttributeList (panel, x, y, width, height, OptionalParameters ())
{
}

AttributeList::AttributeList (const Wg::Panel& panel, short x, short y, short width, short height, const OptionalParameters& params)
    : AttributeList (panel, false, nullptr, Wg::Rect::FromSize (x, y, width, height), params)
{
}

AttributeList::AttributeList (const Wg::Panel& owner, bool bindExisting, Wg::ListBox* existing, const Wg::Rect& rect,
                              const OptionalParameters& params)
    : panel (const_cast<Wg::Panel&> (owner)),
      onTabItems (std::make_unique<OnTabItems> (owner, params.GetTextEditMaxLength (), params.GetEditControlAutoUpdate ())),
      resizeableColumnsRatio (params.GetResizeableColumnsRatio ()),
      keepResizableColumnsRatio (params.GetKeepResizableColumnsRatio ()),
      groupColumnWidth (params.HasGroupColumn () ? GroupColumnWidth : 0),
      iconColumnWidth (params.HasIconColumn () ? params.GetIconColumnWidth () : 0)
{
    const bool hasTitles = !params.GetHeaderString1 ().IsEmpty () || !params.GetHeaderString2 ().IsEmpty ();
    headerType = hasTitles ? params.GetHeaderType () : NoHeader;

    if (existing != nullptr) {
        listBox = existing;
    } else {
        // An id that names no list box is a caller's error; a list box of our own keeps the
        // list usable.
        if (bindExisting) KOR_CHECK (AssertPrefix, SourceFile, existing != nullptr);
        ownListBox = std::make_unique<Wg::SingleSelListBox> (owner, rect, 0, params.GetScrollType (), headerType > NoHeader, HeaderHeight);
        listBox = ownListBox.get ();
    }
    Init (params.IsVisible (), params);
    panel.Attach (*this);
}

void AttributeList::Init (bool visible, const OptionalParameters& params)
{
    listBox->EnableSeparatorLines (true);
    const short rowHeight = static_cast<short> (std::max<int> (onTabItems->GetPosIntEdit ().GetHeight (), MinimumRowHeight) + 1);
    listBox->SetItemHeight (rowHeight);
    listBox->SetHelpStyle (HelpStyleToolTips);

    onTabItems->ForEachControl ([this] (auto& control, auto observer) {
        control.Attach (static_cast<typename decltype (observer)::type&> (*this));
    });
    listBox->Attach (static_cast<Wg::ListBoxObserver&> (*this));

    // The parameter only asks to show at once: a list box of our own starts hidden without it,
    // while the panel's own list box keeps the visibility that its dialog gave it.
    if (visible)
        listBox->Show ();
    else if (ownListBox != nullptr)
        listBox->Hide ();

    if (headerType == OwnHeader) {
        listBox->SetHeaderSynchronState (false);
        listBox->SetHeaderItemCount (3);
    }
    listBox->SetTabFieldCount (ColumnCount);
    InitHeader (params);
    LayoutTabs ();
    SetColumnFormatting ();
    panel.InstallKeyboardHandler (*this);
    AttributeListRegistry::Add (this);
}

void AttributeList::InitHeader (const OptionalParameters& params)
{
    if (headerType == NoHeader) return;
    const short first = headerType == OwnHeader ? 2 : attributeTypeColumnIndex;
    const short second = static_cast<short> (first + 1);
    listBox->SetHeaderItemResizable (first, true);
    listBox->SetHeaderItemMinSize (first, AttributeTypeColumnMinSize);
    listBox->SetHeaderItemText (first, params.GetHeaderString1 ());
    listBox->SetHeaderItemResizable (second, true);
    listBox->SetHeaderItemMinSize (second, headerType == OwnHeader ? OwnHeaderValueMinSize : AttributeNameColumnMinSize);
    listBox->SetHeaderItemText (second, params.GetHeaderString2 ());
}

void AttributeList::SetColumnFormatting ()
{
    listBox->SetTabFieldJustification (groupTriangleColumnIndex, JustifyCenter);
    listBox->SetTabFieldJustification (attributeIconColumnIndex, JustifyCenter);
    for (short column : {attributeTypeColumnIndex, attributeNameColumnIndex}) {
        listBox->SetTabFieldTruncation (column, TruncateEnd);
        listBox->SetTabFieldJustification (column, JustifyLeft);
    }
    listBox->SetTabFieldJustification (previewColumnIndex, JustifyLeft);
    listBox->SetTabFieldOwnerDrawFlag (previewColumnIndex, true);
    listBox->SetTabFieldJustification (checkColumnIndex, JustifyCenter);
}

AttributeList::~AttributeList ()
{
    // Whatever the user typed reaches its item while the list is still whole. An observer that
    // fails on that last change cannot be told: a destructor must not throw.
    try {
        if (Wg::Item* focused = panel.GetFocusedItem (); focused != nullptr && IsOnTabControl (focused)) panel.SetFocusedItem (nullptr);
    } catch (...) {
    }
    // From here on no control event may reach a half-destroyed list.
    DetachFromAllSources ();
    panel.RemoveKeyboardHandler (*this);
    AttributeListRegistry::Remove (this);
    ClearList (false);
    // Destroyed by an observer while drawing was suspended: the panel's list box lives on and
    // must draw again.
    if (drawSuspensionDepth > 0 && ownListBox == nullptr) listBox->EnableDraw ();
}

// --- Geometry and layout ---

Wg::Rect AttributeList::GetRect () const
{
    return listBox->GetRect ();
}

Wg::Rect AttributeList::GetNativeRectInScreenSpace () const
{
    return listBox->GetNativeRectInScreenSpace ();
}

void AttributeList::SetRect (const Wg::Rect& rect)
{
    const Wg::Rect current = listBox->GetRect ();
    MoveAndResize (static_cast<short> (rect.left - current.left), static_cast<short> (rect.top - current.top),
                   static_cast<short> (rect.GetWidth () - current.GetWidth ()), static_cast<short> (rect.GetHeight () - current.GetHeight ()));
}

void AttributeList::MoveAndResize (short dx, short dy, short dWidth, short dHeight)
{
    // Shrinking lays the columns out first and growing last, so that they stay inside the box.
    if (dWidth < 0) {
        LayoutTabs (Add (listBox->GetItemWidth (), dWidth));
        listBox->MoveAndResize (dx, dy, dWidth, dHeight);
    } else {
        listBox->MoveAndResize (dx, dy, dWidth, dHeight);
        LayoutTabs ();
    }
}

void AttributeList::Resize (short dWidth, short dHeight)
{
    MoveAndResize (0, 0, dWidth, dHeight);
}

void AttributeList::Move (short dx, short dy)
{
    listBox->Move (dx, dy);
}

short AttributeList::GetRequiredHeight () const
{
    return Rb::GetListBoxRequiredHeight (*listBox);
}

void AttributeList::LayoutTabs ()
{
    LayoutTabs (listBox->GetItemWidth ());
}

void AttributeList::LayoutTabs (short width)
{
    const short G = groupColumnWidth;
    const short I = iconColumnWidth;
    if (groupTriangleColumnIndex > 0) listBox->SetTabFieldBeginEndPosition (groupTriangleColumnIndex, 0, G);
    listBox->SetTabFieldBeginEndPosition (attributeIconColumnIndex, G, Add (G, I));

    const short A = static_cast<short> (width - G - FixedColumnsWidth);
    double ratio = resizeableColumnsRatio;
    if (headerType == NoHeader && !keepResizableColumnsRatio && A != 0) {
        // Without a header the label column takes only 0.3 of any width beyond the base width.
        ratio = ((A - resizeableColumnsOriginalSize) * resizeableColumnsResizeRatio + resizeableColumnsRatio * resizeableColumnsOriginalSize) / A;
    }
    const short F = ToShort (std::trunc (A * ratio));
    short valueWidth = static_cast<short> (A - F);
    short labelWidth = static_cast<short> (F - I);   // the icon column is paid from the label's share
    if (labelWidth < AttributeTypeColumnMinSize) {
        valueWidth = static_cast<short> (valueWidth + labelWidth - AttributeTypeColumnMinSize);
        labelWidth = AttributeTypeColumnMinSize;
    }
    // The label's minimum is given up first when both cannot be met.
    if (valueWidth < AttributeNameColumnMinSize) {
        labelWidth = static_cast<short> (labelWidth - (AttributeNameColumnMinSize - valueWidth));
        valueWidth = AttributeNameColumnMinSize;
    }

    const short labelBegin = Add (G, I);
    const short labelEnd = Add (labelBegin, labelWidth);
    const short valueEnd = Add (labelEnd, valueWidth);
    const short checkBegin = static_cast<short> (width - CheckColumnSize);
    listBox->SetTabFieldBeginEndPosition (attributeTypeColumnIndex, labelBegin, labelEnd);
    listBox->SetTabFieldBeginEndPosition (attributeNameColumnIndex, labelEnd, valueEnd);
    listBox->SetTabFieldBeginEndPosition (previewColumnIndex, valueEnd, checkBegin);
    listBox->SetTabFieldBeginEndPosition (checkColumnIndex, checkBegin, width);

    if (headerType == OwnHeader) {
        listBox->SetHeaderItemSize (1, Add (G, I));
        listBox->SetHeaderItemSize (2, labelWidth);
        listBox->SetHeaderItemSize (3, static_cast<short> (width - labelEnd));
    }
    SetOnTabItems ();
}

void AttributeList::CalculateResizeableColumnsRatio ()
{
    double t = 0;
    double v = 0;
    if (headerType != OwnHeader) {
        t = listBox->GetTabFieldWidth (attributeTypeColumnIndex);
        v = listBox->GetTabFieldWidth (attributeNameColumnIndex);
    } else {
        t = listBox->GetHeaderItemSize (2);
        v = listBox->GetHeaderItemSize (3) - FixedColumnsWidth;
    }
    const double total = iconColumnWidth + t + v;
    if (total != 0) resizeableColumnsRatio = (iconColumnWidth + t) / total;
    LayoutTabs ();
}

// --- List box forwarding ---

void AttributeList::SetStatus (bool enable)
{
    listBox->SetStatus (enable);
    // The controls over a disabled list box take no input either.
    SetOnTabItems ();
}

bool AttributeList::IsEnabled () const
{
    return listBox->IsEnabled ();
}

void AttributeList::Show ()
{
    listBox->Show ();
}

void AttributeList::Hide ()
{
    listBox->Hide ();
}

bool AttributeList::IsVisible () const
{
    return listBox->IsVisible ();
}

short AttributeList::GetListBoxId () const
{
    return listBox->GetId ();
}

Gfx::Color AttributeList::GetDefaultHeaderBgColor (short row, const AttributeListItem* item) const
{
    if (!hasDefaultHeaderColor) {
        defaultHeaderColor = Rb::GetListBoxDefaultSectionHeaderBackgroundColor (*listBox, row, item);
        hasDefaultHeaderColor = true;
    }
    return defaultHeaderColor;
}

}   // namespace TxAL
