#include "Schemes.h"

#include "Calls.h"
#include "Records.h"

#include <algorithm>

namespace {

struct Scheme {
    LONG id;
    LONG classType;
    std::wstring name;
    bool isShared;
    ComPtr<IDispatch> entry; ///< conditions, sort order, columns, pages
};

std::vector<Scheme> schemes;
LONG lastId = 0;
std::wstring lastUsed; ///< id of the scheme used last, as text

/// A record of our own with the entries of another: the control's are not kept longer than the call.
ComPtr<IDispatch> copyOf(IDispatch* record) {
    const ComPtr<IDispatch> copy = make<Dictionary>();
    const Variant keys = call(record, L"Keys");
    const LONG count = call(keys.object(), L"Count").number();
    for (LONG i = 1; i <= count; ++i) {
        const Variant key = call(keys.object(), L"", {i});
        put(copy.get(), L"", {key, call(record, L"", {key})});
    }
    return copy;
}

class SchemeStore final : public LateBound {
  public:
    SchemeStore()
        : LateBound({L"GetProfileList", L"GetProfile", L"SaveProfile", L"DelProfile", L"GetUserProfile",
                     L"SaveUserProfile", L"Execute"}) {}

  private:
    Variant answer(const Call& call) override;
    static Variant list(LONG classType);
    static void save(IDispatch* header, IDispatch* entry);
    static std::vector<Scheme>::iterator find(LONG id) {
        return std::find_if(schemes.begin(), schemes.end(), [id](const Scheme& scheme) { return scheme.id == id; });
    }
};

// The first argument of all but Execute is the user properties: a host with several users reads who asks.
Variant SchemeStore::answer(const Call& call) {
    if (call.member == L"GetProfileList")
        return list(call.argument(1).number());
    if (call.member == L"SaveProfile") {
        save(call.argument(1).object(), call.argument(2).object());
        return {};
    }
    if (call.member == L"GetUserProfile")
        return lastUsed;
    if (call.member == L"SaveUserProfile") {
        lastUsed = call.argument(3).string();
        return {};
    }
    // The name of a scheme's owner: there is one user, and no database to run the statement.
    if (call.member == L"Execute")
        return make<OneValue>(userName).get();
    const auto scheme = find(call.argument(1).number());
    if (call.member == L"DelProfile") {
        if (scheme == schemes.end())
            return false;
        schemes.erase(scheme);
        return true;
    }
    if (scheme == schemes.end())
        throw Failure{E_INVALIDARG, L"no scheme " + call.argument(1).string()};
    return scheme->entry.get(); // GetProfile
}

Variant SchemeStore::list(LONG classType) {
    std::vector<ComPtr<IDispatch>> records;
    for (const Scheme& scheme : schemes) {
        if (scheme.classType != classType)
            continue;
        records.push_back(make<Dictionary>(std::initializer_list<std::pair<std::wstring, Variant>>{
            {L"FSchemeID", scheme.id},
            {L"FSchemeName", scheme.name},
            {L"FUserID", userId},
            {L"FIsShare", LONG{scheme.isShared}},
        }));
    }
    return make<Collection>(records).get();
}

void SchemeStore::save(IDispatch* header, IDispatch* entry) {
    LONG id = call(header, L"", {L"FSchemeID"}).number();
    auto scheme = find(id);
    if (scheme == schemes.end()) {
        if (id == 0) { // a new one: its number goes back to the control
            id = ++lastId;
            put(header, L"", {L"FSchemeID", id});
        }
        scheme = schemes.insert(schemes.end(), Scheme{id, 0, {}, false, {}});
    }
    scheme->classType = call(header, L"", {L"FTranType"}).number();
    // The name comes ready for an SQL text, with its quotes doubled.
    scheme->name = call(header, L"", {L"FSchemeName"}).string();
    for (std::size_t at = 0; (at = scheme->name.find(L"''", at)) != std::wstring::npos; ++at)
        scheme->name.erase(at, 1);
    scheme->isShared = call(header, L"", {L"FIsShare"}).number() == 1;
    scheme->entry = copyOf(entry);
}

} // namespace

ComPtr<IDispatch> makeSchemeStore() {
    return make<SchemeStore>();
}
