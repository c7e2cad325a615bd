#include "support/PropsString.h"

#include "support/Letters.h"
#include "support/PairList.h"

namespace orv::support {

std::u16string_view PropsString::value(std::u16string_view key) const {
    return lookupPair(text_, key, propsSeparator);
}

std::u16string PropsString::GetPropsValue(std::u16string_view key) const {
    return toUpper(value(key));
}

} // namespace orv::support
