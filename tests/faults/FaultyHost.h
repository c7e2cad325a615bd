#pragma once

#include "automation/ObjectFactory.h"
#include "erp/host/ErpHost.h"
#include "ui/Prompts.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orv::faults {

/// Strikes once, at the call of a given number. Creating a component, calling a member of any object of the host's and
/// showing a box are calls.
struct Strike {
    int calls = 0;
    int at = 0;
    std::function<void()> action;             ///< runs inside of the call; may raise
    std::optional<automation::Value> spoiled; ///< answers in place of the call's own answer
    std::u16string struck;                    ///< the member that was struck, "" before
    int inHost = 0;                           ///< how deep the host's own code is running now

    /// True when this call's answer is the spoiled one.
    bool called(std::u16string_view member);
};

/// The sample ERP as a host whose every call can be struck, and a user who answers Yes and saves under a given name.
class FaultyHost final : public automation::ObjectFactory, public ui::Prompts {
  public:
    explicit FaultyHost(std::shared_ptr<erp::ErpHost> erp) : erp_(std::move(erp)) {}

    automation::ObjectRef create(std::u16string_view progId) override;
    automation::ObjectRef shared(std::u16string_view progId) override;
    automation::ObjectRef dataService(std::int32_t classTypeId);
    erp::ErpHost& erp() noexcept { return *erp_; }

    ui::MessageAnswer message(const std::u16string& text, std::int32_t style, const std::u16string& title) override;
    void showModal(ui::Dialog& dialog) override;
    void log(const std::u16string&) override {}

    Strike strike;
    std::vector<std::u16string> messages;
    std::u16string schemeName; ///< typed into the save dialog; "" cancels it

  private:
    automation::ObjectRef watched(automation::ObjectRef object);
    void calledFromBox(std::u16string_view kind);

    std::shared_ptr<erp::ErpHost> erp_;
};

/// The sample ERP with two small class types that have fields, comparisons and look-ups of every kind.
std::shared_ptr<erp::ErpHost> openSmallErp();

inline constexpr std::int32_t receipts = 1000201;
inline constexpr std::int32_t payments = 1000202;

} // namespace orv::faults
