#include "play/TextTable.h"

#include "automation/Text.h"

#include <algorithm>

namespace orv::play {

namespace {

bool isWide(char16_t c) {
    struct Range {
        char16_t first, last;
    };
    // The wide and full-width blocks of the basic plane (Unicode Standard Annex 11).
    constexpr Range wide[] = {{0x1100, 0x115F}, {0x2E80, 0xA4CF}, {0xAC00, 0xD7A3}, {0xF900, 0xFAFF},
                              {0xFE30, 0xFE6F}, {0xFF01, 0xFF60}, {0xFFE0, 0xFFE6}};
    return std::ranges::any_of(wide, [c](Range range) { return c >= range.first && c <= range.last; });
}

} // namespace

std::size_t displayWidth(std::string_view utf8) {
    std::size_t width = 0;
    for (const char16_t c : automation::fromUtf8(utf8)) {
        // Characters beyond the basic plane are surrogate pairs: most are ideographs or pictures, two columns wide.
        width += isWide(c) ? 2U : 1U;
    }
    return width;
}

std::string textTable(const std::vector<std::vector<std::string>>& rows, std::string_view indent) {
    std::vector<std::size_t> widths;
    std::vector<bool> used;
    for (std::size_t r = 0; r < rows.size(); ++r) {
        widths.resize(std::max(widths.size(), rows[r].size()));
        used.resize(widths.size());
        for (std::size_t c = 0; c < rows[r].size(); ++c) {
            widths[c] = std::max(widths[c], displayWidth(rows[r][c]));
            used[c] = used[c] || (r > 0 && !rows[r][c].empty());
        }
    }
    std::string table;
    const auto addLine = [&](const std::vector<std::string>& cells, char rule) {
        std::string line(indent);
        for (std::size_t c = 0; c < widths.size(); ++c) {
            if (!used[c])
                continue;
            const std::string cell = rule ? std::string(widths[c], rule) : c < cells.size() ? cells[c] : std::string();
            line += cell + std::string(widths[c] - displayWidth(cell) + 2, ' ');
        }
        line.erase(line.find_last_not_of(' ') + 1);
        table += line + "\n";
    };
    for (std::size_t r = 0; r < rows.size(); ++r) {
        addLine(rows[r], 0);
        if (r == 0)
            addLine({}, '-');
    }
    return table;
}

} // namespace orv::play
