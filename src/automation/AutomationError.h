#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace orv::automation {

/// Run-time error numbers that the control itself raises or passes on.
namespace errorNumber {
inline constexpr std::int32_t invalidCall = 5;
inline constexpr std::int32_t overflow = 6;
inline constexpr std::int32_t outOfMemory = 7;
inline constexpr std::int32_t subscriptOutOfRange = 9;
inline constexpr std::int32_t typeMismatch = 13;
inline constexpr std::int32_t outOfStackSpace = 28;
inline constexpr std::int32_t objectNotSet = 91;
inline constexpr std::int32_t invalidNull = 94;
inline constexpr std::int32_t objectRequired = 424;
inline constexpr std::int32_t cannotCreateObject = 429;
inline constexpr std::int32_t memberNotFound = 438;
inline constexpr std::int32_t wrongArgumentCount = 450;
inline constexpr std::int32_t keyExists = 457;
} // namespace errorNumber

/// A failure of an automation call or of a rule of the system: what a host sees as its error object.
///
/// `number` is either a run-time error (1..65535) or a full result code of a component, kept as it came.
class AutomationError : public std::exception {
  public:
    AutomationError(std::int32_t number, std::u16string source, std::u16string description);

    /// The platform's own wording of run-time error `number`, with the control as the source.
    static AutomationError runtime(std::int32_t number);

    std::int32_t number() const noexcept { return number_; }
    const std::u16string& source() const noexcept { return source_; }
    const std::u16string& description() const noexcept { return description_; }

    /// The number and the description in UTF-8, for logs and test output.
    const char* what() const noexcept override { return what_.c_str(); }

  private:
    std::int32_t number_;
    std::u16string source_;
    std::u16string description_;
    std::string what_;
};

/// The wording of run-time error `number` in the source language (Simplified Chinese); a general wording when unknown.
std::u16string runtimeErrorText(std::int32_t number);

/// The name under which the control raises its own errors.
inline constexpr const char16_t* controlSource = u"ORVFilter.Filter";

} // namespace orv::automation
