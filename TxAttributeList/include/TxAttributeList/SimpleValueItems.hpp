#pragma once
// Simple value items: check boxes, push buttons, icon buttons, information rows and separators.
//
// Every observer operation is sent only for a user action; setters refresh the row (when the
// item is in a list) and notify nobody.

#include "TxAttributeList/AttributeListItems.hpp"

namespace Wg {
class ButtonItem;
}   // namespace Wg

namespace TxAL {

class AttributeListCheckItem;
class AttributeListButtonItem;
class AttributeListIconButtonItem;

// --- Observers ---

class AttributeListCheckItemObserver : public virtual AttributeListItemObserver {
protected:
    friend class AttributeListCheckItem;
    virtual void CheckChanged (const AttributeListCheckItem& item);
};

// Hears clicks on a button row's push button.
class AttributeListButtonItemObserver : public virtual AttributeListItemObserver {
protected:
    friend class AttributeListButtonItem;
    virtual void ButtonClicked (const AttributeListButtonItem& item);
};

// Hears clicks on an icon-button row's button and on its icon.
class AttributeListIconButtonItemObserver : public virtual AttributeListItemObserver {
protected:
    friend class AttributeListIconButtonItem;
    virtual void ButtonClicked (const AttributeListIconButtonItem& item);
    // A click on the always-active icon in the check column.
    virtual void ButtonIconClicked (const AttributeListIconButtonItem& item);
};

// --- Check ---

class AttributeListCheckItem : public AttributeListSimpleItem {
public:
    // The check column value that stands for "the list's preview column".
    static constexpr unsigned short PreviewColumn = 65535;

    AttributeListCheckItem (const Kor::UniString& name, const Wg::Icon& icon, bool checked, const Kor::UniString& checkName, bool status,
                            bool boldText);

    // The typed overloads below would hide these.
    using AttributeListSimpleItem::Attach;
    using AttributeListSimpleItem::Detach;
    void Attach (AttributeListCheckItemObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (AttributeListCheckItemObserver& observer) { Kor::EventSource::Detach (observer); }

    bool  IsChecked () const { return checked; }
    void  SetChecked (bool value);
    const Kor::UniString& GetCheckName () const { return checkName; }
    void  SetCheckName (const Kor::UniString& value);
    short GetCheckColumn () const;
    // Stores without a refresh.
    void  SetCheckColumn (short column) { checkColumn = static_cast<unsigned short> (column); }
    // What the space bar and a click on the box do: toggle and tell the observers.
    void  InvertCheckAndNotify ();

    void  DrawListItem (short row) const override;
    void  ItemClicked (const Wg::ListBoxClickEvent& event) override;
    void  ItemDoubleClicked (const Wg::ListBoxDoubleClickEvent& event, bool* handled) override;
    void  UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event) override;
    short GetFirstDrawnColumnIfOnGroup () const override;

private:
    bool IsInBox (int x) const;

    bool           checked;
    Kor::UniString checkName;
    unsigned short checkColumn = PreviewColumn;
};

// --- Buttons ---

class AttributeListButtonItem : public AttributeListSimpleItem {
public:
    AttributeListButtonItem (const Kor::UniString& name, const Wg::Icon& icon, const Kor::UniString& buttonText, bool status, bool boldText);

    // The typed overloads below would hide these.
    using AttributeListSimpleItem::Attach;
    using AttributeListSimpleItem::Detach;
    void Attach (AttributeListButtonItemObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (AttributeListButtonItemObserver& observer) { Kor::EventSource::Detach (observer); }

    const Kor::UniString& GetButtonText () const { return buttonText; }
    void                  SetButtonText (const Kor::UniString& value);

    void           DrawListItem (short row) const override;
    void           InitializeOnTabItems () const override;
    void           ButtonClicked (const Wg::ButtonClickEvent& event) override;
    Kor::UniString GetDrawnTextContentForKorAT (Kor::Friend<AttributeList> key, short column) override;

private:
    Kor::UniString buttonText;
};

// A row with a text, a tag text and a button showing an icon in the check column.
class AttributeListIconButtonItem : public AttributeListSimpleItem {
public:
    AttributeListIconButtonItem (const Kor::UniString& name, const Wg::Icon& icon, const Kor::UniString& text, const Kor::UniString& tagText,
                                 const Wg::Icon& buttonIcon, bool status, bool boldText);

    // The typed overloads below would hide these.
    using AttributeListSimpleItem::Attach;
    using AttributeListSimpleItem::Detach;
    void Attach (AttributeListIconButtonItemObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (AttributeListIconButtonItemObserver& observer) { Kor::EventSource::Detach (observer); }

    const Kor::UniString& GetText () const { return text; }
    void                  SetText (const Kor::UniString& value);
    const Kor::UniString& GetTagText () const { return tagText; }
    void                  SetTagText (const Kor::UniString& value);
    const Wg::Icon&       GetButtonIcon () const { return buttonIcon; }
    void                  SetButtonIcon (const Wg::Icon& value);
    bool                  IsButtonIconAlwaysActive () const { return buttonIconAlwaysActive; }
    void                  SetButtonIconAlwaysActive (bool value);
    // The list's icon button while it stands on this item's row, else null.
    Wg::ButtonItem*       GetIconButton () const;

    void           DrawListItem (short row) const override;
    void           InitializeOnTabItems () const override;
    void           ItemClicked (const Wg::ListBoxClickEvent& event) override;
    void           ButtonClicked (const Wg::ButtonClickEvent& event) override;
    void           UpdatePreviewTab (const Wg::ListBoxTabItemUpdateEvent& event) override;
    Kor::UniString GetDrawnTextContentForKorAT (Kor::Friend<AttributeList> key, short column) override;

private:
    Kor::UniString text;
    Kor::UniString tagText;
    Wg::Icon       buttonIcon;
    bool           buttonIconAlwaysActive = false;
};

// --- Information and separator ---

// A read-only label and text.
class AttributeListInfoItem : public AttributeListSimpleItem {
public:
    AttributeListInfoItem (const Kor::UniString& name, const Wg::Icon& icon, bool status, bool boldText);

    // Stores without comparing or refreshing: the text shows at the next redraw (intended).
    void SetAttributeInfoText (const Kor::UniString& text) { infoText = text; }
    const Kor::UniString& GetAttributeInfoText () const { return infoText; }

    void DrawListItem (short row) const override;

private:
    Kor::UniString infoText;
};

// A row painted in the header colour, without text or control.
class AttributeListSeparatorItem : public AttributeListSimpleItem {
public:
    AttributeListSeparatorItem ();

    void DrawListItem (short row) const override;
};

}   // namespace TxAL
