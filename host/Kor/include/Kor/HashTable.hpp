#pragma once
// Kor::HashTable: a key-value map, thin over std::unordered_map. Get throws KeyNotFoundException
// for a missing key; GetPtr answers null instead.

#include <cstddef>
#include <unordered_map>

#include "Kor/Exceptions.hpp"

namespace Kor {

template <typename K, typename V, typename Hash = std::hash<K>>
class HashTable : public std::unordered_map<K, V, Hash> {
public:
    using std::unordered_map<K, V, Hash>::unordered_map;
    HashTable () = default;

    // Adds a new pair; returns false (and changes nothing) when the key is present.
    bool Add (const K& key, const V& value) { return this->emplace (key, value).second; }
    // Adds or replaces.
    void Put (const K& key, const V& value) { this->insert_or_assign (key, value); }
    bool Delete (const K& key) { return this->erase (key) > 0; }
    bool ContainsKey (const K& key) const { return this->find (key) != this->end (); }

    const V& Get (const K& key) const
    {
        auto it = this->find (key);
        if (it == this->end ()) throw KeyNotFoundException ();
        return it->second;
    }
    V& Get (const K& key)
    {
        auto it = this->find (key);
        if (it == this->end ()) throw KeyNotFoundException ();
        return it->second;
    }
    const V* GetPtr (const K& key) const
    {
        auto it = this->find (key);
        return it == this->end () ? nullptr : &it->second;
    }
    V* GetPtr (const K& key)
    {
        auto it = this->find (key);
        return it == this->end () ? nullptr : &it->second;
    }

    std::size_t GetSize () const { return this->size (); }
    bool        IsEmpty () const { return this->empty (); }
    void        Clear () { this->clear (); }
};

}   // namespace Kor
