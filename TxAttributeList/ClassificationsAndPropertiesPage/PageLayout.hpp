#pragma once
// The geometry of the classifications and properties page: where the classification list, the
// splitter, the property list and the information strip stand, and how they follow the panel's
// events. The page owns one and forwards its panel and splitter events to it; the layout asks
// the page back for the information strip and lays out through the page's overridable layout
// operation.
//
// Call tree:
//   PanelOpened                 -> InitLayoutIfNotInitializedYet
//   PanelIdle                   -> InitLayoutIfNotInitializedYet; no splitter position yet -> layout (0, 0, block)
//   PanelResized (resizable)    -> strip items follow; both lists -> layout (dw, dh); else the one list resizes
//   PanelResizeExited           -> layout (0, 0)
//   SplitterDragged (own)       -> splitter position from the drag -> layout (0, 0, block)
//   InitLayoutIfNotInitializedYet (once) -> RefreshInfoStrip; both lists -> layout; no classifications ->
//                                  hide them and the splitter, the property list moves up

#include <functional>
#include <optional>

#include "TxAttributeList/AttributeList.hpp"
#include "TxAttributeList/ClassificationsAndPropertiesPageTypes.hpp"
#include "Wg/Controls.hpp"
#include "Wg/Splitter.hpp"
#include "Wg/TabPage.hpp"

namespace TxAL {

class PageLayout {
public:
    using InfoStrip = ClassificationsAndPropertiesPageInfoStrip;
    using InfoStripGetter = std::function<std::optional<InfoStrip> ()>;
    using LayoutOperation = std::function<void (short widthChange, short heightChange, bool moveResizeBlock)>;

    // The controls of the page; none is owned.
    struct Parts {
        Wg::TabPage&   page;
        Wg::IconItem&  infoIcon;
        Wg::LeftText&  infoText;
        Wg::Splitter&  splitter;
        AttributeList& classificationList;
        AttributeList& propertyList;
    };

    // The icons of the strip: a warning and an information.
    struct StripIcons {
        Wg::Icon warning;
        Wg::Icon information;
    };

    // The default minimum height of each list, when the library's resources give none.
    static constexpr short DefaultMinimumListHeight = 54;

    PageLayout (const Parts& parts, const IClassificationsAndPropertiesPageOptions& options, const StripIcons& icons,
                InfoStripGetter getInfoStrip, LayoutOperation layoutOperation);

    // The splitter's centre line measured from the page's top, for a splitter whose top is y.
    short GetSplitterPosition (int y) const;
    short GetSplitterPosition () const { return splitterPosition; }
    // Taken as it is; the next layout clamps it.
    void  SetSplitterPosition (short position) { splitterPosition = position; }

    // Puts the splitter at the stored position, clamped by the minimums, and moves the lists
    // with it; widthChange and heightChange are how much the page grew since the last layout.
    void LayoutPageWithSplitter (short widthChange, short heightChange, bool moveResizeBlock);
    // Asks for the strip and shows or hides it, giving the property list the strip's room.
    void RefreshInfoStrip ();
    void InitLayoutIfNotInitializedYet ();
    bool IsLayoutInitialized () const { return layoutInitialized; }
    bool IsInfoStripVisible () const { return infoStripVisible; }

    // --- The page's events ---
    void PanelOpened ();
    void PanelIdle ();
    void PanelResized (int horizontalChange, int verticalChange);
    void PanelResizeExited ();
    void SplitterDragged (const Wg::SplitterDragEvent& event);

private:
    bool ShowsBothLists () const;

    Parts                                           parts;
    const IClassificationsAndPropertiesPageOptions& options;
    StripIcons                                      icons;
    InfoStripGetter                                 getInfoStrip;
    LayoutOperation                                 layoutOperation;

    short splitterPosition = 0;
    bool  layoutInitialized = false;
    // The strip's items exist and show until the first refresh decides.
    bool  infoStripVisible = true;
    // How much the property list grew when the strip was hidden, to be given back when it shows.
    short propertyListHeightCorrection = 0;
    bool  heightCorrected = false;
};

}   // namespace TxAL
