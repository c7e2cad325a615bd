#pragma once

#include "automation/ObjectFactory.h"
#include "automation/Views.h"
#include "bench/host/CountingObject.h"
#include "ui/Prompts.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orv::bench {

/// What a LargeHost's data service answers for one class type.
struct LargeTables {
    std::int32_t classTypeId = 0;
    automation::Value selectList;
    automation::Value pages;
    automation::Value tableInfo;
    automation::Value classType;
};

/// A middle tier in memory with class types of any number of fields, which counts the late-bound calls that reach its
/// objects. Its tables are ready before they are asked for, so that only the control's time counts. Records that the
/// control makes are the control's own and not counted.
///
/// Fields take turns: dates, numbers, texts, value lists; every fourth has a two-level caption, every ninth is an
/// amount, every 50th must be fetched. They stand on pages 1 and 2 by halves.
class LargeHost final : public automation::ObjectFactory {
  public:
    /// `fields` is the number of fields of every class type.
    explicit LargeHost(std::int32_t fields);

    automation::ObjectRef create(std::u16string_view progId) override;
    automation::ObjectRef shared(std::u16string_view progId) override { return create(progId); }

    /// A data service for one of the two class types. All of them share the tables.
    automation::ObjectRef dataService(std::int32_t classTypeId);

    std::int32_t fields() const noexcept { return fields_; }
    /// Late-bound calls since the last reset.
    std::size_t calls() const noexcept { return count_->calls; }
    void resetCalls() noexcept { count_->calls = 0; }

  private:
    std::int32_t fields_;
    std::shared_ptr<const std::vector<LargeTables>> tables_;
    std::shared_ptr<CallCount> count_ = std::make_shared<CallCount>();
};

/// The class types that a LargeHost offers.
inline constexpr const char16_t* largeClassTypes = u"3001,3002";
inline constexpr std::int32_t firstLargeClassType = 3001;

/// What the host answers for today: 29 February 2024.
inline constexpr double largeHostToday = 45351;

/// Confirms every message; nothing is shown.
class SilentPrompts final : public ui::Prompts {
  public:
    ui::MessageAnswer message(const std::u16string&, std::int32_t, const std::u16string&) override {
        return ui::MessageAnswer::ok;
    }
    void log(const std::u16string&) override {}
};

/// The key of field `position` (from 1) of a LargeHost.
std::u16string largeFieldKey(std::int32_t position);

} // namespace orv::bench
