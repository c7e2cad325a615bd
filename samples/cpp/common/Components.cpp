#include "Components.h"

#include "DataService.h"
#include "Records.h"
#include "Schemes.h"

namespace {

/// "ORVEBCGLView.GLData": answers queries. The control asks it for the server's date when a condition counts from
/// today.
class ServerData final : public LateBound {
  public:
    ServerData() : LateBound({L"getanyrecordset"}) {}

  private:
    Variant answer(const Call& call) override;
};

Variant ServerData::answer(const Call&) {
    SYSTEMTIME now;
    GetLocalTime(&now);
    DATE days = 0;
    SystemTimeToVariantTime(&now, &days);
    return make<OneValue>(Variant::date(days)).get();
}

/// "ORVResLoader.Loader": translates captions and messages. The control writes the language that it wants first.
class ResourceLoader final : public LateBound {
  public:
    ResourceLoader() : LateBound({L"ResFileBaseName", L"LanguageID", L"LoadString2"}) {}

  private:
    Variant answer(const Call& call) override {
        if (call.member == L"LoadString2")
            return call.argument(0); // no other language here: the text as it is
        if (call.isWrite)
            (call.member == L"LanguageID" ? language_ : fileName_) = call.argument(0);
        return call.member == L"LanguageID" ? language_ : fileName_;
    }

    Variant language_;
    Variant fileName_;
};

/// "ORVPropsMgr.ShareProps": tells who the user is.
class UserProperties final : public LateBound {
  public:
    UserProperties() : LateBound({L"GetProperty"}) {}

  private:
    Variant answer(const Call& call) override {
        return call.argument(0).string() == L"PropsString" ? userProperties : L"";
    }
};

} // namespace

const std::vector<Component>& components() {
    static const std::vector<Component> all = {
        {L"QDX.Dictionary",
         {0x6f0d1b52, 0x3b7e, 0x4c0b, {0x9d, 0x5e, 0x60, 0x1c, 0x52, 0x7a, 0x11, 0x01}},
         [] { return make<Dictionary>(); }},
        {L"QDX.Collection",
         {0x6f0d1b52, 0x3b7e, 0x4c0b, {0x9d, 0x5e, 0x60, 0x1c, 0x52, 0x7a, 0x11, 0x02}},
         [] { return make<Collection>(); }},
        {L"ORVClassTpl.DataSrv",
         {0x6f0d1b52, 0x3b7e, 0x4c0b, {0x9d, 0x5e, 0x60, 0x1c, 0x52, 0x7a, 0x11, 0x03}},
         [] { return make<DataService>(); }},
        {L"ORVEBCGLView.GLData",
         {0x6f0d1b52, 0x3b7e, 0x4c0b, {0x9d, 0x5e, 0x60, 0x1c, 0x52, 0x7a, 0x11, 0x04}},
         [] { return make<ServerData>(); }},
        {L"ORVResLoader.Loader",
         {0x6f0d1b52, 0x3b7e, 0x4c0b, {0x9d, 0x5e, 0x60, 0x1c, 0x52, 0x7a, 0x11, 0x05}},
         [] { return make<ResourceLoader>(); }},
        {L"ORVPropsMgr.ShareProps",
         {0x6f0d1b52, 0x3b7e, 0x4c0b, {0x9d, 0x5e, 0x60, 0x1c, 0x52, 0x7a, 0x11, 0x06}},
         [] { return make<UserProperties>(); }},
        {L"ORVMProfile.classInfo",
         {0x6f0d1b52, 0x3b7e, 0x4c0b, {0x9d, 0x5e, 0x60, 0x1c, 0x52, 0x7a, 0x11, 0x07}},
         makeSchemeStore},
        {L"ORVMProfile.classUpdate",
         {0x6f0d1b52, 0x3b7e, 0x4c0b, {0x9d, 0x5e, 0x60, 0x1c, 0x52, 0x7a, 0x11, 0x08}},
         makeSchemeStore},
        {L"ORVMProfile.ClassUserProfileInfo",
         {0x6f0d1b52, 0x3b7e, 0x4c0b, {0x9d, 0x5e, 0x60, 0x1c, 0x52, 0x7a, 0x11, 0x09}},
         makeSchemeStore},
        {L"ORVMProfile.ClassUserProfileUpdate",
         {0x6f0d1b52, 0x3b7e, 0x4c0b, {0x9d, 0x5e, 0x60, 0x1c, 0x52, 0x7a, 0x11, 0x0a}},
         makeSchemeStore},
        {L"ORVConnection.AppConnection",
         {0x6f0d1b52, 0x3b7e, 0x4c0b, {0x9d, 0x5e, 0x60, 0x1c, 0x52, 0x7a, 0x11, 0x0b}},
         makeSchemeStore},
    };
    return all;
}
