#pragma once

#include "export/CExportTransectInfo.h"

#include "base/CString.h"

#include <type_traits>
#include <utility>
#include <vector>

namespace Tevra::Data {

// The choice of columns of one generic result table, remembered in the profile store under
// the table's own section. Every table starts with the object's name and its polyline; the
// third and fourth switches held here are the table's next two columns, which differ from
// table to table (vertical offset and L/H for buildings, iteration and location for utility
// movements and pullout, location and X for utility strains). Every column is on at
// construction.
//
// The derived tables list their columns once, in a static table of (key, switch) in the
// order of the table's cells, with the transect block placed at kTransectBlockAt;
// ForEachColumn walks them all, and saving, restoring and None() are that walk.
class CExportItemsCSV {
  public:
    // A column of the derived table Items: its key in the profile store and its switch.
    template <class Items> struct SColumn {
        const wchar_t* key;
        bool Items::*on;
    };

    virtual ~CExportItemsCSV() = default;

    // Every column to the profile store under the table's section, as 1 or 0.
    virtual void SaveToRegistry() = 0;
    // Every column from the profile store, the present choice standing where nothing is
    // stored; a stored non-zero value turns the column on.
    virtual void RestoreFromRegistry() = 0;
    // True when no column is on, those of the transect block included.
    virtual bool None() const = 0;

    bool GetName() const { return m_bName; }
    void SetName(bool b) { m_bName = b; }
    bool GetPolyline() const { return m_bPolyline; }
    void SetPolyline(bool b) { m_bPolyline = b; }

  protected:
    CExportItemsCSV() = default;
    CExportItemsCSV(const CExportItemsCSV&) = default;
    CExportItemsCSV& operator=(const CExportItemsCSV&) = default;

    // Calls f(key, on) for the columns of items, in order, with the seven of the transect
    // block before the column at Items::kTransectBlockAt (at the end when that is the
    // number of columns). With items and transect const, on is a const bool&.
    template <class Items, class Transect, class F>
    static void WalkColumns(Items& items, Transect& transect, F& f) {
        using Table = std::remove_const_t<Items>;
        const auto& columns = Table::Columns();
        for (size_t i = 0; i <= columns.size(); ++i) {
            if (i == Table::kTransectBlockAt)
                for (const CExportTransectInfo::SColumn& t : CExportTransectInfo::Columns())
                    f(t.key, transect.*t.on);
            if (i < columns.size())
                f(columns[i].key, items.*columns[i].on);
        }
    }

    // The walk of the table's columns, against the profile store at its section.
    template <class Items> static void Restore(const wchar_t* section, Items& items);
    template <class Items> static void Save(const wchar_t* section, const Items& items);
    template <class Items> static bool NoneOn(const Items& items) {
        bool none = true;
        items.ForEachColumn([&none](const wchar_t*, bool on) { none = none && !on; });
        return none;
    }

    // Columns 1 to 4 of every table.
    bool m_bName = true;
    bool m_bPolyline = true;
    bool m_bColumn3 = true;
    bool m_bColumn4 = true;

  private:
    // The profile store's part of Restore and Save, kept out of this header.
    static int ReadColumn(const CString& section, const wchar_t* key, bool present);
    static void WriteColumns(const CString& section,
                             const std::vector<std::pair<CString, int>>& entries);
};

template <class Items> void CExportItemsCSV::Restore(const wchar_t* section, Items& items) {
    const CString s(section);
    items.ForEachColumn([&s](const wchar_t* key, bool& on) { on = ReadColumn(s, key, on) != 0; });
}

template <class Items> void CExportItemsCSV::Save(const wchar_t* section, const Items& items) {
    std::vector<std::pair<CString, int>> entries;
    items.ForEachColumn(
        [&entries](const wchar_t* key, bool on) { entries.emplace_back(key, on ? 1 : 0); });
    WriteColumns(section, entries);
}

} // namespace Tevra::Data
