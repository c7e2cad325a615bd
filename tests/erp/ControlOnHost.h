#pragma once

#include "HostTesting.h"
#include "control/Filter.h"
#include "erp/db/Database.h"
#include "ui/Prompts.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace orv::erp::testing {

class Shown final : public ui::Prompts {
  public:
    ui::MessageAnswer message(const std::u16string& text, std::int32_t, const std::u16string&) override {
        messages.push_back(utf8(text));
        return ui::MessageAnswer::ok;
    }
    void log(const std::u16string& text) override { logged.push_back(utf8(text)); }

    std::vector<std::string> messages;
    std::vector<std::string> logged;
};

/// The control on the built-in host, which the tests of a suite share.
class ControlOnHost : public ::testing::Test {
  protected:
    static void SetUpTestSuite() { erp_ = openErp(); }
    static void TearDownTestSuite() { erp_.reset(); }

    static ErpHost& erp() { return *erp_; }
    /// Opens a class type with all of its pages.
    void open(std::int32_t classType) {
        filter.put_dctControl(erp().defaultSettings());
        filter.put_DataSrv(erp().dataService(classType));
        filter.put_SetSelectPageList(u",1*,2,3,4,");
        ASSERT_TRUE(filter.Initialize());
    }
    ui::Spread& grid() { return filter.controls().vsFilter; }
    /// Chooses an item of a combo cell by its caption.
    void choose(int column, int row, std::u16string_view caption) {
        const auto& items = grid().comboItems(column, row);
        const auto found = std::ranges::find_if(items, [&](const std::u16string& item) {
            return item.starts_with(caption) && (item.size() == caption.size() || item[caption.size()] == u' ');
        });
        ASSERT_NE(found, items.end()) << "no item " << utf8(caption);
        ASSERT_TRUE(grid().userChoose(column, row, static_cast<int>(found - items.begin())));
    }

    Shown shown;
    control::Filter filter{*erp_, shown};

  private:
    static inline std::shared_ptr<ErpHost> erp_;
};

} // namespace orv::erp::testing
