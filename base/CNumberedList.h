#pragma once

#include <algorithm>
#include <utility>
#include <vector>

namespace Tevra {

// A list of records addressed from outside by 1-based number, with the rules that
// every record family of a project shares:
//  - Get(n) is element n - 1 and does not test n: the caller tests Exists(n) first;
//  - Exists(n) holds for 1 <= n <= Num();
//  - Set(n, r) first grows the list to n with default records when n lies beyond it;
//  - Insert(n, ...) inserts before element n - 1;
//  - Delete(first, -1) removes record first alone, Delete(first, last) with
//    last < first does nothing, otherwise first to last inclusive, clamped to the end.
template <class T> class CNumberedList {
  public:
    int Num() const { return static_cast<int>(m_items.size()); }
    bool Exists(int n) const { return n >= 1 && n <= Num(); }
    const T& Get(int n) const { return m_items[static_cast<size_t>(n - 1)]; }
    T& Access(int n) { return m_items[static_cast<size_t>(n - 1)]; }

    void Set(int n, const T& record) {
        if (n < 1)
            return;
        if (n > Num()) {
            // The record may be an element of this list, which the growth moves.
            T copy(record);
            m_items.resize(static_cast<size_t>(n), m_prototype);
            m_items[static_cast<size_t>(n - 1)] = std::move(copy);
            return;
        }
        m_items[static_cast<size_t>(n - 1)] = record;
    }

    void Insert(int n, int count) {
        if (count > 0)
            m_items.insert(Position(n), static_cast<size_t>(count), m_prototype);
    }
    void Insert(int n, const T& record) { m_items.insert(Position(n), record); }

    void Delete(int first, int last) {
        if (last == -1)
            last = first;
        if (last < first)
            return;
        first = std::max(first, 1);
        last = std::min(last, Num());
        if (first > last)
            return;
        m_items.erase(m_items.begin() + (first - 1), m_items.begin() + last);
    }

    void Clear() { m_items.clear(); }
    std::vector<T>& Items() { return m_items; }
    const std::vector<T>& Items() const { return m_items; }

    // The record that growth and insertion by count fill in (a default record
    // unless the family has a prototype of its own).
    void SetPrototype(const T& prototype) { m_prototype = prototype; }
    const T& Prototype() const { return m_prototype; }

    bool operator==(const CNumberedList& o) const { return m_items == o.m_items; }

  private:
    typename std::vector<T>::iterator Position(int n) {
        const int index = std::clamp(n - 1, 0, Num());
        return m_items.begin() + index;
    }

    std::vector<T> m_items;
    T m_prototype{};
};

} // namespace Tevra

// The named members of one family as one-line forwards to its CNumberedList:
// Name##Exists, Get##Name, Set##Name, Insert##Name (by count and by record),
// Delete##Name, and Num##Plural unless the family counts its own way.
#define ZORVO_NUMBERED_ACCESS(Name, Type, list)                                                    \
    bool Name##Exists(int n) const { return list.Exists(n); }                                      \
    const Type& Get##Name(int n) const { return list.Get(n); }                                     \
    Type& Access##Name(int n) { return list.Access(n); }                                           \
    void Set##Name(int n, const Type& record) { list.Set(n, record); }                             \
    void Insert##Name(int n, int count) { list.Insert(n, count); }                                 \
    void Insert##Name(int n, const Type& record) { list.Insert(n, record); }                       \
    void Delete##Name(int first, int last) { list.Delete(first, last); }

#define ZORVO_NUMBERED_FAMILY(Name, Plural, Type, list)                                            \
    ZORVO_NUMBERED_ACCESS(Name, Type, list)                                                        \
    int Num##Plural() const { return list.Num(); }

// The same members for a family kept as one list per direction (lists indexed by
// GeoGlobal::EDirection), each taking the direction first.
#define ZORVO_NUMBERED_DIRECTION_FAMILY(Name, Type, lists)                                         \
    bool Name##Exists(GeoGlobal::EDirection d, int n) const { return lists[d].Exists(n); }         \
    int Num##Name##s(GeoGlobal::EDirection d) const { return lists[d].Num(); }                     \
    const Type& Get##Name(GeoGlobal::EDirection d, int n) const { return lists[d].Get(n); }        \
    void Set##Name(GeoGlobal::EDirection d, int n, const Type& record) {                           \
        lists[d].Set(n, record);                                                                   \
    }                                                                                              \
    void Insert##Name(GeoGlobal::EDirection d, int n, int count) { lists[d].Insert(n, count); }    \
    void Insert##Name(GeoGlobal::EDirection d, int n, const Type& record) {                        \
        lists[d].Insert(n, record);                                                                \
    }                                                                                              \
    void Delete##Name(GeoGlobal::EDirection d, int first, int last) {                              \
        lists[d].Delete(first, last);                                                              \
    }                                                                                              \
    const std::vector<Type>& Get##Name##s(GeoGlobal::EDirection d) const {                         \
        return lists[d].Items();                                                                   \
    }                                                                                              \
    void Set##Name##s(GeoGlobal::EDirection d, const std::vector<Type>& records) {                 \
        lists[d].Items() = records;                                                                \
    }
