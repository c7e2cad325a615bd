#pragma once

#include "automation/Object.h"

namespace orv::erp {

/// "OrvSample.Host": what a list window does around the control, for scripts. Members:
/// - `DataService(class type)`: the data service to hand to the control
/// - `Settings()`: the control settings of a typical host, a new dictionary
/// - `Rows(class type, where, head sort, entry sort)`: how many rows the list has under these texts
/// - `List(...)`, likewise: a dictionary of "Rows", "Bills", "FirstKeys" (the first ten bill numbers, with commas
///   between) and "SQL"
/// - `FillRow(filter, line, left, field, compare, value, right, logic)`: fills a line of the control's condition grid
/// as
///   a user does, see fillConditionRow
/// - `Text(units)`: the text of hexadecimal UTF-16 units with blanks between, for scripts in plain ASCII
/// - `AnswerLookUp(number)`: chooses that record in the next look-up dialog
/// - `FailNext(ProgID, member, number, description)`: makes that component's next call fail
automation::ObjectRef makeScriptHost();

} // namespace orv::erp
