#pragma once
// ClassificationListItem: one classification system of the edited elements as one row of an
// attribute list. The row's label is the system's display name, its value the chosen item's
// display name; the icon column shows (and a click on it toggles) whether the elements take
// part in the system; the row's button, shown only while they do, opens the item selector.
//
// The object is not itself a list item: it owns an icon-button row, hears that row's clicks and
// places it into a list on request. Observers hear ClassificationChanged only for a change the
// user made that leaves an item chosen (see ElementClassificationChanged).

#include <cstdint>
#include <memory>

#include "CLS/ElemClassificationData.hpp"
#include "Kor/Event.hpp"
#include "Kor/Ref.hpp"
#include "Rb/BaseItemSelectionData.hpp"
#include "TxAttributeList/ClassificationItemSelectorPopup.hpp"
#include "TxAttributeList/SimpleValueItems.hpp"

namespace TxAL {

class AttributeList;
class ClassificationListItem;

// Hears the user's changes of a classification row.
class ClassificationListItemObserver : public virtual Kor::EventObserver {
public:
    virtual void ClassificationChanged (const ClassificationListItem& item);
};

// The visibility getter that filters nothing. The class name is spelled so on purpose and is kept.
class NoClassificationVisisibilityEffect : public ClassificationItemSelectorPopup::IClassificationVisibilityGetter {
public:
    bool IsClassificationVisible (const ODB::ConstRef<CLS::IClassificationItem>& item) const override;
    bool IsClassificationVisibilityHandlingEnabled () const override;
};

// One classification system as one row (see the top of this file).
class ClassificationListItem : public Kor::EventSource,
                               public AttributeListIconButtonItemObserver,
                               public Rb::BaseItemSelectionDataObserver {
public:
    enum EditableStatus : std::int32_t { Editable = 0, NotEditable = 1 };

    // Stock images of the icon column: the elements take part in the system, or do not.
    static constexpr std::int64_t AssociationMarkModule = -4;
    static constexpr std::int32_t AssociatedMark = -3;
    static constexpr std::int32_t NotAssociatedMark = -4;
    // The row's button icon, of the user-dialogs library's resources.
    static constexpr int          ButtonIconResId = 17;
    static constexpr int          ValueStringsResId = 5008;
    static constexpr int          EmptySystemStringIndex = 1;
    static constexpr int          NoItemStringIndex = 2;

    ClassificationListItem (const CLS::ElemClassificationData& data, EditableStatus editableStatus,
                            Kor::Ref<ClassificationItemSelectorPopup::IClassificationVisibilityGetter> visibilityGetter);
    // A copy shows the same data on a row of its own that is in no list; observers are not copied.
    ClassificationListItem (const ClassificationListItem& source);
    ClassificationListItem& operator= (const ClassificationListItem&) = delete;
    ~ClassificationListItem () override;

    void Attach (ClassificationListItemObserver& observer) { Kor::EventSource::Attach (observer); }
    void Detach (ClassificationListItemObserver& observer) { Kor::EventSource::Detach (observer); }

    // Adds the row to the end of the list; the list does not own it.
    void AppendToAttributeList (AttributeList& list);
    // Selects the row in its list.
    void Select ();
    const CLS::ElemClassificationData& GetItemData () const { return itemData; }
    EditableStatus                     GetEditableStatus () const { return editableStatus; }
    // The row as it stands (for hosts and tests that look at it).
    const AttributeListIconButtonItem& GetRow () const { return *row; }

protected:
    // --- AttributeListIconButtonItemObserver ---
    void ButtonClicked (const AttributeListIconButtonItem& item) override;
    // --- AttributeListItemObserver ---
    void IconColumnClicked (const AttributeListItem& item) override;

private:
    void Construct ();
    // Brings the row in line with itemData. The name is spelled so on purpose and is kept.
    void UpdateUserInteface ();
    void ElementClassificationChanged ();
    void NotifyObservers ();

    CLS::ElemClassificationData                  itemData;
    EditableStatus                               editableStatus;
    bool                                         systemHasItems = false;
    std::unique_ptr<AttributeListIconButtonItem> row;
    ClassificationItemSelectorPopup              selectorPopup;
};

}   // namespace TxAL
