#pragma once
// What an element (or a set of elements) holds for one classification system: the system, the
// chosen item (possibly none) and whether the element takes part in the system at all.

#include "CLS/ClassificationItem.hpp"
#include "CLS/ClassificationSystem.hpp"
#include "ODB/Ref.hpp"

namespace CLS {

// The classification of an element in one system.
class ElemClassificationData {
public:
    ElemClassificationData () = default;
    ElemClassificationData (const ODB::ConstRef<ClassificationSystem>& system, const ODB::ConstRef<ClassificationItem>& item,
                            bool associatedWithElem);

    const ODB::ConstRef<ClassificationSystem>& GetClassificationSystem () const { return system; }
    const ODB::ConstRef<ClassificationItem>&   GetClassificationItem () const { return item; }
    bool HasClassificationItem () const { return !item.IsNull (); }
    bool IsAssociatedWithElem () const { return associatedWithElem; }
    void SwitchAssociatedWithElemFlag () { associatedWithElem = !associatedWithElem; }
    void SetAssociatedWithElem (bool value) { associatedWithElem = value; }

    // Stores the item (empty: no item); returns whether the stored item changed. An item of
    // another system is refused: nothing changes and the answer is false.
    bool SetClassificationItem (const ODB::ConstRef<ClassificationItem>& newItem);

private:
    ODB::ConstRef<ClassificationSystem> system;
    ODB::ConstRef<ClassificationItem>   item;
    bool                                associatedWithElem = false;
};

}   // namespace CLS
