#include "metadata/PageSelection.h"

#include <algorithm>

namespace orv::metadata {

PageSelection::PageSelection(std::u16string_view pageList) : list_(pageList) {
    std::erase(list_, u'*');
}

bool PageSelection::contains(std::u16string_view page) const {
    std::u16string item = u",";
    item += page;
    item += u',';
    return list_.find(item) != std::u16string::npos;
}

} // namespace orv::metadata
