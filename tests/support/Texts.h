#pragma once

// Expected texts kept in tables beside the tests. Each line of a .tsv file is a case, a tab
// and one text, which runs to the end of the line, blanks included; "\n" in it stands for a
// line break. A case may take several lines: its texts, in order. '#' starts a comment line.
#include <fstream>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace Tevra::Testing {

using TextTable = std::map<std::string, std::vector<std::string>>;

// The table in tests/<file>; throws when it cannot be read, so that no case passes empty.
inline TextTable ReadTexts(const std::string& file) {
    std::ifstream in(std::string(ZORVO_SOURCE_DIR) + "/tests/" + file);
    if (!in)
        throw std::runtime_error("cannot read tests/" + file);
    TextTable table;
    std::string line;
    while (std::getline(in, line)) {
        const size_t tab = line.find('\t');
        if (line.empty() || line[0] == '#' || tab == std::string::npos)
            continue;
        std::string text;
        for (size_t k = tab + 1; k < line.size(); ++k) {
            const bool lineBreak = line[k] == '\\' && k + 1 < line.size() && line[k + 1] == 'n';
            text += lineBreak ? '\n' : line[k];
            k += lineBreak ? 1 : 0;
        }
        table[line.substr(0, tab)].push_back(text);
    }
    return table;
}

// The texts of a case, each in brackets on a line of its own, as the tests print theirs.
inline std::string Bracketed(const std::vector<std::string>& texts) {
    std::string s;
    for (const std::string& t : texts)
        s += "[" + t + "]\n";
    return s;
}

} // namespace Tevra::Testing
