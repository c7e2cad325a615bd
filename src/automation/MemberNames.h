#pragma once

#include <string_view>

// The members that the control uses of the host's foundation library and of recordsets. They stand in this one place
// because that library is the host's: another edition may spell them differently.
namespace orv::automation::member {

namespace dictionary {
inline constexpr std::u16string_view value{}; // the default member: Value(key), read and written
inline constexpr std::u16string_view exists = u"Exists";
inline constexpr std::u16string_view getValue = u"GetValue";
inline constexpr std::u16string_view count = u"Count";
inline constexpr std::u16string_view keys = u"Keys";
inline constexpr std::u16string_view cloneAll = u"CloneAll";
} // namespace dictionary

namespace collection {
inline constexpr std::u16string_view item{}; // the default member: Item(i), 1-based
inline constexpr std::u16string_view count = u"Count";
inline constexpr std::u16string_view add = u"Add";
} // namespace collection

namespace recordset {
inline constexpr std::u16string_view fields = u"Fields"; // Fields(name or 0-based index).Value
inline constexpr std::u16string_view value = u"Value";
inline constexpr std::u16string_view recordCount = u"RecordCount";
inline constexpr std::u16string_view eof = u"EOF";
inline constexpr std::u16string_view moveNext = u"MoveNext";
inline constexpr std::u16string_view filter = u"Filter";
} // namespace recordset

} // namespace orv::automation::member

namespace orv::automation::progId {
inline constexpr std::u16string_view dictionary = u"QDX.Dictionary";
inline constexpr std::u16string_view collection = u"QDX.Collection";
} // namespace orv::automation::progId
