#pragma once
// Kor::HashSet: an unordered set, thin over std::unordered_set.

#include <cstddef>
#include <unordered_set>

namespace Kor {

template <typename T, typename Hash = std::hash<T>>
class HashSet : public std::unordered_set<T, Hash> {
public:
    using std::unordered_set<T, Hash>::unordered_set;
    HashSet () = default;

    // Returns whether the value was new.
    bool        Add (const T& value) { return this->insert (value).second; }
    bool        Delete (const T& value) { return this->erase (value) > 0; }
    bool        Contains (const T& value) const { return this->find (value) != this->end (); }
    std::size_t GetSize () const { return this->size (); }
    bool        IsEmpty () const { return this->empty (); }
    void        Clear () { this->clear (); }
};

}   // namespace Kor
