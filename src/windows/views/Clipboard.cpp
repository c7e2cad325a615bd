#include "windows/views/Clipboard.h"

#include <cstring>

namespace orv::windows {

namespace {

/// The open clipboard.
class OpenClipboardScope {
  public:
    explicit OpenClipboardScope(HWND owner) noexcept : open_(OpenClipboard(owner) != FALSE) {}
    OpenClipboardScope(const OpenClipboardScope&) = delete;
    OpenClipboardScope& operator=(const OpenClipboardScope&) = delete;
    ~OpenClipboardScope() {
        if (open_)
            CloseClipboard();
    }
    explicit operator bool() const noexcept { return open_; }

  private:
    bool open_;
};

} // namespace

std::u16string textFromClipboard(HWND owner) {
    const OpenClipboardScope clipboard(owner);
    const HANDLE data = clipboard ? GetClipboardData(CF_UNICODETEXT) : nullptr;
    if (!data)
        return {};
    const auto* text = static_cast<const char16_t*>(GlobalLock(data));
    if (!text)
        return {};
    const std::u16string_view all(text, GlobalSize(data) / sizeof(char16_t));
    std::u16string result(all.substr(0, all.find(u'\0')));
    GlobalUnlock(data);
    return result;
}

void putOnClipboard(HWND owner, const std::u16string& text) {
    const std::size_t bytes = (text.size() + 1) * sizeof(char16_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    void* target = memory ? GlobalLock(memory) : nullptr;
    if (!target)
        return;
    std::memcpy(target, text.c_str(), bytes);
    GlobalUnlock(memory);
    const OpenClipboardScope clipboard(owner);
    if (!clipboard || !EmptyClipboard() || !SetClipboardData(CF_UNICODETEXT, memory))
        GlobalFree(memory);
}

TextBlock parseBlock(std::u16string_view text) {
    TextBlock rows;
    if (text.empty())
        return rows;
    rows.emplace_back(1);
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        std::u16string& cell = rows.back().back();
        if (quoted) {
            if (c != u'"')
                cell += c;
            else if (i + 1 < text.size() && text[i + 1] == u'"')
                cell += text[++i];
            else
                quoted = false;
        } else if (c == u'"' && cell.empty() && text.find(u'"', i + 1) != std::u16string_view::npos) {
            quoted = true;
        } else if (c == u'\t') {
            rows.back().emplace_back();
        } else if (c == u'\n' || c == u'\r') {
            if (c == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n')
                ++i;
            // The line end of the last row begins no further one.
            if (i + 1 < text.size())
                rows.emplace_back(1);
        } else {
            cell += c;
        }
    }
    return rows;
}

std::u16string formatBlock(const TextBlock& rows) {
    std::u16string text;
    for (const auto& row : rows) {
        for (const std::u16string& cell : row) {
            if (&cell != &row.front())
                text += u'\t';
            if (cell.find_first_of(u"\t\r\n\"") == std::u16string::npos) {
                text += cell;
                continue;
            }
            text += u'"';
            for (const char16_t c : cell)
                text.append(c == u'"' ? 2 : 1, c);
            text += u'"';
        }
        if (rows.size() > 1)
            text += u"\r\n";
    }
    return text;
}

} // namespace orv::windows
