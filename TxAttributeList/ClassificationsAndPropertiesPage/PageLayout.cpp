#include "ClassificationsAndPropertiesPage/PageLayout.hpp"

#include <cmath>
#include <utility>

#include "TxAttributeList/ResourceHelpers.hpp"

namespace TxAL {

IClassificationsAndPropertiesPageOptions::~IClassificationsAndPropertiesPageOptions () = default;

namespace {

// String list 20197: the page's own resources; 2 and 3 are the minimum heights of the lists.
constexpr int PageResId = 20197;
constexpr int ClassificationMinimumIndex = 2;
constexpr int PropertyMinimumIndex = 3;

// The splitter's position counts as not set below this (a page restored without a state).
constexpr double UnsetSplitterPositionLimit = 0.00001;

struct MinimumHeights {
    short classificationList;
    short propertyList;
};

// Read once per process, at the first layout, and kept.
const MinimumHeights& GetMinimumHeights ()
{
    static const MinimumHeights heights {
        GetResourceShortValue (PageResId, ClassificationMinimumIndex, PageLayout::DefaultMinimumListHeight),
        GetResourceShortValue (PageResId, PropertyMinimumIndex, PageLayout::DefaultMinimumListHeight),
    };
    return heights;
}

short ToShort (int value)
{
    return static_cast<short> (value);
}

}   // namespace

PageLayout::PageLayout (const Parts& parts, const IClassificationsAndPropertiesPageOptions& options, const StripIcons& icons,
                        InfoStripGetter getInfoStrip, LayoutOperation layoutOperation)
    : parts (parts), options (options), icons (icons), getInfoStrip (std::move (getInfoStrip)), layoutOperation (std::move (layoutOperation))
{
}

short PageLayout::GetSplitterPosition (int y) const
{
    // The page's rectangle in its own coordinates, where its items stand.
    const Wg::Rect pageRect (0, 0, parts.page.GetWidth (), parts.page.GetHeight ());
    const int halfSplitter = static_cast<int> (std::lround (parts.splitter.GetHeight () * 0.5));
    return ToShort (y - pageRect.top + halfSplitter);
}

bool PageLayout::ShowsBothLists () const
{
    return options.ShowClassifications () && options.ShowProperties ();
}

void PageLayout::LayoutPageWithSplitter (short widthChange, [[maybe_unused]] short heightChange, bool moveResizeBlock)
{
    if (!ShowsBothLists ()) return;
    const MinimumHeights& minimums = GetMinimumHeights ();
    const short current = GetSplitterPosition (parts.splitter.GetRect ().top);
    const int available = parts.page.GetHeight () - (parts.infoText.IsVisible () ? parts.infoText.GetHeight () : 0);

    // The property list's minimum is tested last, so it wins when the page is too small for both.
    if (splitterPosition < minimums.classificationList) splitterPosition = minimums.classificationList;
    if (available - splitterPosition < minimums.propertyList) splitterPosition = ToShort (available - minimums.propertyList);
    const short delta = ToShort (splitterPosition - current);

    if (moveResizeBlock) parts.page.BeginMoveResizeItems ();
    parts.classificationList.Resize (widthChange, delta);
    parts.splitter.MoveAndResize (0, delta, widthChange, 0);
    const int propertyBottom = parts.propertyList.GetRect ().bottom + delta;
    parts.propertyList.MoveAndResize (0, delta, widthChange, ToShort (available - propertyBottom));
    // The height change needs no term of its own: the property list's bottom lands on the
    // available height, wherever the page's bottom went.
    if (moveResizeBlock) parts.page.EndMoveResizeItems ();
}

void PageLayout::RefreshInfoStrip ()
{
    const std::optional<InfoStrip> strip = getInfoStrip ();
    const bool present = strip.has_value ();
    if (present != infoStripVisible) {
        infoStripVisible = present;
        parts.infoIcon.SetVisibility (present);
        parts.infoText.SetVisibility (present);
        if (!present) {
            propertyListHeightCorrection = ToShort (parts.infoText.GetRect ().bottom - parts.propertyList.GetRect ().bottom);
            heightCorrected = true;
            parts.propertyList.Resize (0, propertyListHeightCorrection);
        } else if (heightCorrected) {
            parts.propertyList.Resize (0, ToShort (-propertyListHeightCorrection));
            heightCorrected = false;
        }
    }
    if (present) {
        parts.infoIcon.SetIcon (strip->IsWarning () ? icons.warning : icons.information);
        parts.infoText.SetText (strip->GetMessage ());
    }
}

void PageLayout::InitLayoutIfNotInitializedYet ()
{
    if (layoutInitialized) return;
    layoutInitialized = true;
    RefreshInfoStrip ();
    if (ShowsBothLists ()) {
        layoutOperation (0, 0, false);
        return;
    }
    if (!options.ShowClassifications ()) {
        parts.classificationList.Hide ();
        parts.splitter.Hide ();
        const int rise = parts.classificationList.GetRect ().top - parts.propertyList.GetRect ().top;
        parts.propertyList.MoveAndResize (0, ToShort (rise), 0, ToShort (-rise));
    }
}

void PageLayout::PanelOpened ()
{
    InitLayoutIfNotInitializedYet ();
}

void PageLayout::PanelIdle ()
{
    InitLayoutIfNotInitializedYet ();
    if (splitterPosition < UnsetSplitterPositionLimit && ShowsBothLists ()) layoutOperation (0, 0, true);
}

void PageLayout::PanelResized (int horizontalChange, int verticalChange)
{
    if (!options.PageIsResizable ()) return;
    parts.infoIcon.Move (0, verticalChange);
    parts.infoText.MoveAndResize (0, verticalChange, horizontalChange, 0);
    const short dWidth = ToShort (horizontalChange);
    const short dHeight = ToShort (verticalChange);
    if (ShowsBothLists ())
        layoutOperation (dWidth, dHeight, false);
    else if (options.ShowClassifications ())
        parts.classificationList.Resize (dWidth, dHeight);
    else
        parts.propertyList.Resize (dWidth, dHeight);
}

void PageLayout::PanelResizeExited ()
{
    if (ShowsBothLists ()) layoutOperation (0, 0, false);
}

void PageLayout::SplitterDragged (const Wg::SplitterDragEvent& event)
{
    if (event.GetSource () != &parts.splitter) return;
    splitterPosition = GetSplitterPosition (event.GetPosition ());
    layoutOperation (0, 0, true);
}

}   // namespace TxAL
