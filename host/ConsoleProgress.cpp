#include "ConsoleProgress.h"

#include "solver/ZorvoSolver.h"

#include <algorithm>
#include <cstdio>
#include <cwchar>

namespace Tevra {

namespace {

const char* FamilyName(long long code) {
    switch (code) {
    case 5: // one tick, twice a stage when the project holds imported sets
        return "imported displacements";
    case 40:
        return "points";
    case 41:
        return "lines";
    case 42:
        return "polylines";
    case 43:
        return "grids";
    case 44:
        return "specific buildings";
    case 45:
        return "specific utilities";
    case 46:
        return "generic buildings";
    case 47:
        return "generic utilities";
    case 48:
        return "rail tracks";
    case 49:
        return "rail damage";
    case 50:
        return "specific utility damage";
    case 51:
        return "generic utility damage";
    case 52:
        return "specific building damage";
    case 53:
        return "generic building damage";
    default:
        return nullptr;
    }
}

constexpr int kBarWidth = 30;

// Objects of the family a message announces.
int FamilyCount(const Data::ZorvoData& doc, long long code) {
    switch (code) {
    case 40:
        return doc.NumDisplacementPoints(false);
    case 41:
        return doc.NumDisplacementLines(false);
    case 42:
        return doc.NumDisplacementPolylines(false);
    case 43:
        return doc.NumDisplacementGrids(false);
    case 44:
    case 52:
        return doc.NumSpecificBuildings();
    case 45:
    case 50:
        return doc.NumSpecificUtilities();
    case 47:
    case 51:
        return doc.NumGenericUtilities();
    default:
        return 0;
    }
}

} // namespace

void ConsoleProgress::OnMessage(const wchar_t* text, long long code) {
    if (code == 0) {
        ++m_ticks;
        Draw();
        return;
    }
    if (const char* family = FamilyName(code)) {
        Finish();
        m_label = "stage ";
        if (text) {
            char buf[32];
            std::snprintf(buf, sizeof buf, "%ls", text);
            m_label += buf;
        }
        m_label += ' ';
        m_label += family;
        m_ticks = 0;
        const int count = FamilyCount(m_doc, code);
        m_expected = std::max(1, count / ZorvoSolver::TickStep(count));
        m_open = true;
        Draw();
    }
}

void ConsoleProgress::Draw() {
    const int done = std::min(m_ticks, m_expected);
    const int filled = done * kBarWidth / m_expected;
    m_out << '\r' << m_label << " [" << std::string(static_cast<size_t>(filled), '#')
          << std::string(static_cast<size_t>(kBarWidth - filled), '.') << "] "
          << done * 100 / m_expected << '%' << std::flush;
}

void ConsoleProgress::Finish() {
    if (m_open)
        m_out << '\n';
    m_open = false;
}

} // namespace Tevra
