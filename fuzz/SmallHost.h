#pragma once

#include "automation/ObjectFactory.h"
#include "automation/Records.h"
#include "ui/Prompts.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace orv::fuzz {

/// One class type of the host's list.
struct ClassTypeItem {
    std::int32_t id = 0;
    std::u16string name;
};

/// A host in memory with one small class type behind every id: four pages, fields of every kind, schemes, look-ups. It
/// outlives the control that it serves. Much quicker than the sample ERP, which answers from a database.
class SmallHost final : public automation::ObjectFactory, public ui::Prompts {
  public:
    SmallHost();
    ~SmallHost() override;

    automation::ObjectRef create(std::u16string_view progId) override;
    automation::ObjectRef shared(std::u16string_view progId) override { return create(progId); }
    automation::ObjectRef dataService(std::int32_t classTypeId);

    ui::MessageAnswer message(const std::u16string& text, std::int32_t style, const std::u16string& title) override;
    void showModal(ui::Dialog& dialog) override;
    void log(const std::u16string&) override {}

    /// Objects handed out and not yet let go.
    static int liveObjects() noexcept;

    std::vector<ClassTypeItem> classTypes{{1000201, u"收款单据"}, {34, u"其他"}};
    std::u16string classTypeFilter; ///< the text that the class types were asked with last
    int failIn = 0;                 ///< the call that fails, counted from the next one; 0 for none
    bool answersYes = true;
    std::u16string typedSchemeName;
    std::u16string lookUpAnswer; ///< "" cancels the dialogs

  private:
    struct Scheme {
        std::u16string name;
        std::int32_t share = 0;
        automation::Dictionary entry;
    };
    using Call = std::function<automation::Value(std::u16string_view member, automation::Arguments)>;
    automation::ObjectRef object(Call call);
    automation::ObjectRef schemes();
    automation::ObjectRef lookUps();

    automation::Collection fields_;
    automation::Dictionary tableInfo_;
    automation::Collection pages_;
    std::map<std::int32_t, Scheme> schemes_;
    std::u16string lastUsed_;
};

} // namespace orv::fuzz
