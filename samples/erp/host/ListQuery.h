#pragma once

#include "erp/host/ErpHost.h"
#include "erp/host/HostDescription.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace orv::erp {

/// The control's texts; each may be empty.
struct ListTexts {
    std::u16string_view where;
    std::u16string_view headSort;
    std::u16string_view entrySort;
};

/// The statement of a list window: `selectList` from the header table and those joined tables that it and the texts
/// name.
std::u16string listSql(const ListDescription& list, const ListTexts& texts, std::u16string_view selectList);

ListResult runList(const Database& database, const ListDescription& list, const ListTexts& texts,
                   std::size_t firstKeys);

} // namespace orv::erp
