#include "Records.h"

namespace {

// "Subscript out of range", as containers of automation have it.
constexpr HRESULT outOfRange = static_cast<HRESULT>(0x800A0009);

} // namespace

Dictionary::Dictionary(std::initializer_list<std::pair<std::wstring, Variant>> entries)
    : LateBound({L"Value", L"Exists", L"GetValue", L"Count", L"Keys", L"CloneAll"}), entries_(entries) {}

Variant* Dictionary::find(const std::wstring& key) {
    for (auto& [name, value] : entries_) {
        if (name == key)
            return &value;
    }
    return nullptr;
}

Variant Dictionary::answer(const Call& call) {
    if (call.member == L"Count")
        return static_cast<LONG>(entries_.size());
    if (call.member == L"Keys")
        return keys().get();
    if (call.member == L"CloneAll") {
        const auto copy = ComPtr<Dictionary>::attach(new Dictionary);
        copy->entries_ = entries_;
        return static_cast<IDispatch*>(copy.get());
    }

    const std::wstring key = call.argument(0).string();
    Variant* const entry = find(key);
    if (call.member == L"Exists")
        return entry != nullptr;
    if (call.member == L"GetValue")
        return entry ? *entry : call.argument(1);
    if (call.isWrite) {
        if (entry)
            *entry = call.argument(1);
        else
            entries_.emplace_back(key, call.argument(1));
        return {};
    }
    if (!entry)
        throw Failure{outOfRange, L"no entry \"" + key + L"\""};
    return *entry;
}

ComPtr<IDispatch> Dictionary::keys() const {
    std::vector<std::wstring> names;
    for (const auto& entry : entries_)
        names.push_back(entry.first);
    return make<Collection>(names);
}

Collection::Collection(std::vector<ComPtr<IDispatch>> records) : LateBound({L"Item", L"Count", L"Add"}) {
    for (const auto& record : records)
        items_.emplace_back(record.get());
}

Collection::Collection(const std::vector<std::wstring>& texts) : LateBound({L"Item", L"Count", L"Add"}) {
    for (const auto& text : texts)
        items_.emplace_back(text);
}

Variant Collection::answer(const Call& call) {
    if (call.member == L"Count")
        return static_cast<LONG>(items_.size());
    if (call.member == L"Add") {
        items_.push_back(call.argument(0));
        return {};
    }
    const LONG position = call.argument(0).number();
    if (position < 1 || static_cast<std::size_t>(position) > items_.size())
        throw Failure{outOfRange, L"no item " + std::to_wstring(position)};
    return items_[static_cast<std::size_t>(position) - 1];
}

Variant OneValue::answer(const Call& call) {
    if (call.member == L"EOF")
        return atEnd_;
    if (call.member == L"RecordCount")
        return LONG{1};
    if (call.member == L"Fields")
        return static_cast<IDispatch*>(this); // its own only field
    if (call.member == L"MoveNext") {
        atEnd_ = true;
        return {};
    }
    return value_;
}
