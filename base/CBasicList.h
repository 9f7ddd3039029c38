#pragma once

#include "CString.h"

#include <utility>
#include <vector>

namespace Tevra {

// A list of record numbers kept as text, such as "1 to 3 7": numbers separated by
// blanks (or commas), and ranges written with the word "to". The parsed form is kept as
// ranges so that "1 to 1000000" costs no more than "1", and an entry that repeats an
// earlier one is kept once: "2 2 2" is the list "2". Whether a number is included is
// looked up in a sorted copy, so that a long list costs no more than a few comparisons.
class CBasicList {
  public:
    CBasicList() = default;

    // Parses the text and answers whether it is valid; an invalid text leaves the
    // list as it was. Empty text is valid and means none. limit is the highest
    // value a range may reach; 0 means no limit. Repeated entries are dropped, and then
    // the text becomes the entries kept, written out again.
    bool SetString(const CString& text, int limit = 0);
    const CString& String() const { return m_text; }

    // Whether the number is in the list. The limit is accepted for the callers'
    // sake and does not change the answer.
    bool IsIncluded(int number, int limit = 0) const;
    bool IsEmpty() const { return m_ranges.empty(); }
    // The highest number in the list; 0 for an empty list.
    int MaxItem(int limit = 0) const;
    // The ranges (first, last inclusive) in order of the text, each once; a single
    // number is a range of one. The list offers no expansion into numbers: "1 to
    // 2000000000" from a file would take gigabytes, so callers walk the ranges.
    const std::vector<std::pair<int, int>>& Ranges() const { return m_ranges; }

    bool operator==(const CBasicList& o) const { return m_ranges == o.m_ranges; }
    bool operator!=(const CBasicList& o) const { return !(*this == o); }

  private:
    CString m_text;
    std::vector<std::pair<int, int>> m_ranges; // first, last inclusive
    // The numbers of the ranges as ascending ranges that neither overlap nor touch.
    std::vector<std::pair<int, int>> m_sorted;
};

} // namespace Tevra
