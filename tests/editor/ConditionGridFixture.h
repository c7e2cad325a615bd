#pragma once

#include "metadata/Records.h"

#include "automation/Text.h"
#include "editor/ConditionGrid.h"
#include "metadata/PageSelection.h"

#include <gtest/gtest.h>

#include <map>

namespace orv::tests {

/// A data service that offers comparison sets by name and counts how often it is asked.
class FakeDataService final : public automation::Object {
  public:
    automation::Value invoke(std::u16string_view member, automation::InvokeKind, automation::Arguments args) override {
        if (member == u"getCondition") {
            ++asked;
            const auto set = sets.find(std::get<std::u16string>(args[0].value().storage()));
            if (set == sets.end())
                throw automation::AutomationError(1000, u"DataSrv", u"unknown set");
            automation::Collection entries = automation::makeCollection();
            for (const Entries& entry : set->second)
                entries.add(record(entry).object());
            return entries.object();
        }
        throw automation::AutomationError::runtime(automation::errorNumber::memberNotFound);
    }
    std::map<std::u16string, std::vector<Entries>> sets;
    int asked = 0;
};

/// Records the message boxes; every question is answered No.
class RecordedPrompts final : public ui::Prompts {
  public:
    ui::MessageAnswer message(const std::u16string& text, std::int32_t, const std::u16string&) override {
        shown.push_back(automation::toUtf8(text));
        return ui::MessageAnswer::no;
    }
    void log(const std::u16string&) override {}
    std::vector<std::string> shown;
};

/// A laid out condition grid over a catalogue of its own.
class ConditionGridFixture : public testing::Test, protected editor::ConditionGridHost {
  protected:
    void offer(CatalogueBuilder& fields) {
        catalogue_ = std::make_shared<metadata::FieldCatalogue>(fields.catalogue());
        std::u16string items;
        for (std::int32_t position = 1; position <= catalogue_->count(); ++position)
            items += u"\t" + editor::fieldItem(catalogue_->field(position)->text(u"FCaption"), position);
        conditions.layOut();
        conditions.setFieldList(items);
    }

    std::shared_ptr<metadata::FieldCatalogue> catalogue() override { return catalogue_; }
    std::shared_ptr<editor::Comparisons> comparisons() override { return comparisons_; }
    bool onSelectedPage(const metadata::FieldRecord& field) override {
        return selectedPages.contains(field.text(u"FPage"));
    }
    editor::ValueListSource valueListSource() override { return {service, factory, u""}; }
    editor::DecimalPlaces decimalPlaces() override { return {3, 2, 4}; }
    ui::Messages& messages() override { return messages_; }
    void log(std::u16string_view text) override { logged.emplace_back(automation::toUtf8(text)); }

    metadata::PageSelection selectedPages{u",1,"};
    NoComponents factory;
    RecordedPrompts prompts;
    std::shared_ptr<FakeDataService> service = std::make_shared<FakeDataService>();
    std::vector<std::string>& warnings = prompts.shown;
    std::vector<std::string> logged;
    ui::Spread grid{u"vsFilter"};
    editor::ConditionGrid conditions{grid, *this};

  private:
    support::Localisation localisation_{factory, [] { return std::u16string(); }};
    ui::Messages messages_{prompts, localisation_};
    std::shared_ptr<metadata::FieldCatalogue> catalogue_;
    std::shared_ptr<editor::Comparisons> comparisons_ = std::make_shared<editor::Comparisons>(service);
};

} // namespace orv::tests
