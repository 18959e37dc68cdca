#pragma once
// Kor::Array: an ordered, 0-based array, thin over std::vector. The checked accessors throw
// IndexOutOfRangeException; the std::vector interface stays available.

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

#include "Kor/Exceptions.hpp"

namespace Kor {

template <typename T>
class Array : public std::vector<T> {
public:
    using std::vector<T>::vector;
    Array () = default;

    std::size_t GetSize () const { return this->size (); }
    bool        IsEmpty () const { return this->empty (); }

    void Push (const T& value) { this->push_back (value); }
    void Push (T&& value) { this->push_back (std::move (value)); }

    // Inserts before position at; at == size appends.
    void Insert (std::size_t at, const T& value)
    {
        if (at > this->size ()) throw IndexOutOfRangeException ();
        this->insert (this->begin () + static_cast<std::ptrdiff_t> (at), value);
    }
    void Delete (std::size_t at)
    {
        if (at >= this->size ()) throw IndexOutOfRangeException ();
        this->erase (this->begin () + static_cast<std::ptrdiff_t> (at));
    }
    void DeleteLast ()
    {
        if (this->empty ()) throw IndexOutOfRangeException ();
        this->pop_back ();
    }
    // Removes the first element equal to value; returns whether one was found.
    bool DeleteFirst (const T& value)
    {
        auto it = std::find (this->begin (), this->end (), value);
        if (it == this->end ()) return false;
        this->erase (it);
        return true;
    }
    void Clear () { this->clear (); }

    const T& Get (std::size_t at) const
    {
        if (at >= this->size ()) throw IndexOutOfRangeException ();
        return (*this)[at];
    }
    T& Get (std::size_t at)
    {
        if (at >= this->size ()) throw IndexOutOfRangeException ();
        return (*this)[at];
    }
    const T& GetLast () const { return Get (this->size () - 1); }
    T&       GetLast () { return Get (this->size () - 1); }

    bool Contains (const T& value) const { return std::find (this->begin (), this->end (), value) != this->end (); }
    std::optional<std::size_t> FindFirst (const T& value) const
    {
        auto it = std::find (this->begin (), this->end (), value);
        if (it == this->end ()) return std::nullopt;
        return static_cast<std::size_t> (it - this->begin ());
    }
};

}   // namespace Kor
