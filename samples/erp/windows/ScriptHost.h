#pragma once

#include "automation/Object.h"

namespace orv::erp {

/// "OrvSample.Host": what a list window does around the control, for scripts. Members:
/// - `Open(database)`: opens this file (":memory:" for none) as the ERP's database; to be called before anything else,
/// or
///   not at all (see hostOfProcess)
/// - `LogOn(user, language)`: makes a user of the database the current one, by name ("" for the first user); the
/// language
///   is "CHS", "CHT" or "EN". Returns the user's name
/// - `Now`: the server's clock, which stands still; to be read and written
/// - `ClassTypes()`: the class types that there are, a collection of dictionaries with "FID" and "FName"
/// - `DataService(class type)`: the data service to hand to the control
/// - `Settings()`: the control settings of a typical host, a new dictionary
/// - `Rows(class type, where, head sort, entry sort)`: how many rows the list has under these texts
/// - `List(...)`, likewise: a dictionary of "Rows", "Bills", "FirstKeys" (the first ten bill numbers, with commas
///   between) and "SQL"
/// - `BillList(class type, header, where, head sort, entry sort)`: the bills with the columns of a control's
/// `m_Header`; a
///   dictionary of "Records" (a recordset: a column for each of the header's under its "FKey", and "FListNew1", ...,
///   see BillList), "Sums" (a dictionary from the "FKey" of summed columns to Doubles), "Rows", "Bills" and "SQL"
/// - `FillRow(filter, line, left, field, compare, value, right, logic)`: fills a line of the control's condition grid
/// as
///   a user does, see fillConditionRow
/// - `Text(units)`: the text of hexadecimal UTF-16 units with blanks between, for scripts in plain ASCII
/// - `AnswerLookUp(number)`: chooses that record in the next look-up dialog
/// - `FailNext(ProgID, member, number, description)`: makes that component's next call fail
automation::ObjectRef makeScriptHost();

} // namespace orv::erp
