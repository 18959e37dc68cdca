#pragma once
// Pk::ItemWatch: remembers an item and forgets it when the item is destroyed, so that code that
// runs after an observer's notification can tell whether the item still exists.

#include "Wg/Item.hpp"

namespace Pk {

template <typename ItemType>
class ItemWatch : private Wg::ItemObserver {
public:
    explicit ItemWatch (ItemType& watched) : item (&watched) { static_cast<Wg::Item&> (watched).Attach (*this); }
    ItemWatch (const ItemWatch&) = delete;
    ItemWatch& operator= (const ItemWatch&) = delete;
    // The observer base detaches from a living item.
    ~ItemWatch () override = default;

    // The item, or null once it has been destroyed.
    ItemType* Get () const { return item; }

private:
    // --- Kor::EventObserver ---
    void SourceDestroyed (Kor::EventSource&) override { item = nullptr; }

    ItemType* item;
};

}   // namespace Pk
