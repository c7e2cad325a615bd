#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace orv::automation::tests {

/// A folder of its own for the trace files of a test, gone with it.
class TraceFolder {
  public:
    TraceFolder() {
        static int last = 0;
        do {
            path_ = std::filesystem::temp_directory_path() / ("orv-trace-" + std::to_string(++last));
        } while (!std::filesystem::create_directory(path_));
    }
    TraceFolder(const TraceFolder&) = delete;
    TraceFolder& operator=(const TraceFolder&) = delete;
    ~TraceFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    std::u16string file(const char16_t* name) const { return (path_ / name).u16string(); }
    std::u16string path() const { return path_.u16string(); }

  private:
    std::filesystem::path path_;
};

/// An entry of a trace file; the time and the microseconds are left out, for they differ from run to run.
struct TraceLine {
    int depth = 0;
    std::string kind, member, arguments, outcome;
    friend bool operator==(const TraceLine&, const TraceLine&) = default;
    friend void PrintTo(const TraceLine& line, std::ostream* out) {
        *out << line.depth << ' ' << line.kind << ' ' << line.member << ' ' << line.arguments << " -> " << line.outcome;
    }
};

inline std::vector<std::string> linesOf(const std::u16string& file) {
    std::ifstream in(std::filesystem::path(file), std::ios::binary);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

/// The entries of a trace file, without the headings.
inline std::vector<TraceLine> entriesOf(const std::u16string& file) {
    std::vector<TraceLine> entries;
    for (const std::string& line : linesOf(file)) {
        if (line.starts_with('#'))
            continue;
        std::vector<std::string> parts(1);
        for (const char c : line) {
            if (c == '\t')
                parts.emplace_back();
            else
                parts.back() += c;
        }
        parts.resize(8);
        entries.push_back({std::stoi(parts[2]), parts[4], parts[5], parts[6], parts[7]});
    }
    return entries;
}

} // namespace orv::automation::tests
