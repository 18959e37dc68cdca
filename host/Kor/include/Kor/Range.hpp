#pragma once
// Kor::Range<T>: a pair of bounds [begin, end], e.g. a character selection.

namespace Kor {

template <typename T>
class Range {
public:
    constexpr Range () = default;
    constexpr Range (T begin, T end) : begin (begin), end (end) {}

    constexpr T    GetBegin () const { return begin; }
    constexpr T    GetEnd () const { return end; }
    constexpr void SetBegin (T value) { begin = value; }
    constexpr void SetEnd (T value) { end = value; }
    constexpr T    GetLength () const { return end - begin; }
    constexpr bool IsEmpty () const { return !(begin < end); }
    constexpr bool Contains (T value) const { return !(value < begin) && !(end < value); }

    constexpr bool operator== (const Range&) const = default;

private:
    T begin {};
    T end {};
};

}   // namespace Kor
