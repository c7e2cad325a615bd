#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace orv::automation {

/// A file that grows a whole line at a time: other controls and other processes may append to it meanwhile.
class TraceFile {
  public:
    /// Null when the file can neither be opened nor made. A relative path counts from the process's current folder.
    static std::unique_ptr<TraceFile> open(const std::u16string& path);
    TraceFile(const TraceFile&) = delete;
    TraceFile& operator=(const TraceFile&) = delete;
    ~TraceFile();

    /// Writes at the end of the file, past every buffer. What cannot be written (a full disk) is lost without a word.
    void append(std::string_view bytes) noexcept;

  private:
    explicit TraceFile(std::intptr_t handle) noexcept : handle_(handle) {}
    std::intptr_t handle_; ///< the platform's
};

} // namespace orv::automation
