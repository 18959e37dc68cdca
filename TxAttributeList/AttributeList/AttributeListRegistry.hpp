#pragma once
// The process-wide registry of live attribute lists, searched by automated UI testing.

#include <vector>

namespace TxAL {

class AttributeList;

class AttributeListRegistry {
public:
    static void Add (AttributeList* list);
    static void Remove (AttributeList* list);
    // In order of creation; never holds null.
    static const std::vector<AttributeList*>& GetLists ();
};

}   // namespace TxAL
