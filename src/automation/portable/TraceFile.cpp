#include "automation/TraceFile.h"

#include "automation/Text.h"

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace orv::automation {

std::unique_ptr<TraceFile> TraceFile::open(const std::u16string& path) {
    if (path.find(u'\0') != std::u16string::npos)
        return nullptr;
    // Not blocking: a pipe that nobody reads must not stop the control. Values of users are for the user's eyes alone.
    constexpr int ownerOnly = 0600;
    const int file = ::open(toUtf8(path).c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK, ownerOnly);
    return file < 0 ? nullptr : std::unique_ptr<TraceFile>(new TraceFile(file));
}

TraceFile::~TraceFile() {
    ::close(static_cast<int>(handle_));
}

void TraceFile::append(std::string_view bytes) noexcept {
    while (!bytes.empty()) {
        const ssize_t written = ::write(static_cast<int>(handle_), bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

} // namespace orv::automation
