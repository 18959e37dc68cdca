#pragma once
// Texts that tell classification items apart where their names alone would not.

#include "CLS/ClassificationItem.hpp"
#include "Kor/UniString.hpp"
#include "ODB/Ref.hpp"

namespace CLS {

// Names items unambiguously across a system's hierarchy.
class ClassificationHierarchyConflictManager {
public:
    // "<code> <name>"; the code or the name alone when the other is empty; empty for an empty
    // reference.
    static Kor::UniString GetItemDecoratedDisplayName (const ODB::ConstRef<IClassificationItem>& item);
};

}   // namespace CLS
