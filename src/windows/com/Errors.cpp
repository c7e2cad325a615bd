#include "windows/com/Errors.h"

#include "automation/Text.h"
#include "windows/com/ComPtr.h"
#include "windows/com/Handles.h"

#include <exception>
#include <iterator>
#include <new>

namespace orv::windows {

using automation::AutomationError;
namespace errorNumber = automation::errorNumber;

namespace {

constexpr std::uint32_t runtimeErrors = 0x800A0000;

struct DispatchFailure {
    HRESULT result;
    std::int32_t number;
};

constexpr DispatchFailure dispatchFailures[] = {
    {DISP_E_UNKNOWNINTERFACE, errorNumber::memberNotFound},
    {DISP_E_MEMBERNOTFOUND, errorNumber::memberNotFound},
    {DISP_E_PARAMNOTFOUND, 448}, // named argument not found
    {DISP_E_TYPEMISMATCH, errorNumber::typeMismatch},
    {DISP_E_UNKNOWNNAME, errorNumber::memberNotFound},
    {DISP_E_NONAMEDARGS, 446}, // object does not support named arguments
    {DISP_E_BADVARTYPE, errorNumber::typeMismatch},
    {DISP_E_OVERFLOW, errorNumber::overflow},
    {DISP_E_BADINDEX, errorNumber::subscriptOutOfRange},
    {DISP_E_ARRAYISLOCKED, 10}, // this array is fixed or temporarily locked
    {DISP_E_BADPARAMCOUNT, errorNumber::wrongArgumentCount},
    {DISP_E_PARAMNOTOPTIONAL, 449}, // argument not optional
    {DISP_E_DIVBYZERO, 11},
    {E_OUTOFMEMORY, errorNumber::outOfMemory},
    {E_NOTIMPL, 445}, // object does not support this action
    {E_INVALIDARG, errorNumber::invalidCall},
    {CLASS_E_NOAGGREGATION, errorNumber::cannotCreateObject},
    {REGDB_E_CLASSNOTREG, errorNumber::cannotCreateObject},
    {CO_E_CLASSSTRING, errorNumber::cannotCreateObject},
    {CO_E_SERVER_EXEC_FAILURE, errorNumber::cannotCreateObject},
};

/// What a COM caller learns of a failure. The texts may be missing.
struct Report {
    HRESULT result = E_UNEXPECTED;
    UniqueBstr source;
    UniqueBstr description;
};

UniqueBstr copyOrNothing(std::u16string_view text) noexcept {
    return UniqueBstr::attach(SysAllocStringLen(asWide(text.data()), static_cast<UINT>(text.size())));
}

Report reportOfCurrentException() noexcept {
    Report report;
    try {
        throw;
    } catch (const AutomationError& error) {
        report.result = resultOfNumber(error.number());
        report.source = copyOrNothing(error.source());
        report.description = copyOrNothing(error.description());
    } catch (const std::bad_alloc&) {
        report.result = E_OUTOFMEMORY;
    } catch (const std::exception& error) {
        try {
            report.description = copyOrNothing(automation::fromUtf8(error.what()));
        } catch (const std::bad_alloc&) {
            // The code alone has to do.
        }
        report.source = copyOrNothing(automation::controlSource);
    } catch (...) {
        report.source = copyOrNothing(automation::controlSource);
    }
    return report;
}

void clearDetails(EXCEPINFO& details) noexcept {
    details = EXCEPINFO{};
}

HRESULT hand(Report report, EXCEPINFO* details) noexcept {
    if (report.result == E_OUTOFMEMORY)
        return E_OUTOFMEMORY;
    if (details) {
        clearDetails(*details);
        details->scode = report.result;
        details->bstrSource = report.source.release();
        details->bstrDescription = report.description.release();
    }
    return DISP_E_EXCEPTION;
}

/// The platform's wording of a result code, without the line break at its end; "" when there is none.
std::u16string systemText(HRESULT result) {
    wchar_t text[512];
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                  static_cast<DWORD>(result), 0, text, static_cast<DWORD>(std::size(text)), nullptr);
    while (length > 0 && (text[length - 1] == L'\r' || text[length - 1] == L'\n'))
        --length;
    return std::u16string(asUtf16(text), length);
}

/// The thread's error information, when the component says that it set it for its IDispatch.
ComPtr<IErrorInfo> errorInfoOf(IUnknown* component) {
    ComPtr<IErrorInfo> info;
    ComPtr<ISupportErrorInfo> supports;
    if (component && SUCCEEDED(component->QueryInterface(__uuidof(ISupportErrorInfo), supports.putVoid())) &&
        supports->InterfaceSupportsErrorInfo(IID_IDispatch) == S_OK)
        GetErrorInfo(0, info.put());
    return info;
}

} // namespace

HRESULT resultOfNumber(std::int32_t number) noexcept {
    if (number > 0 && number <= 0xFFFF)
        return static_cast<HRESULT>(runtimeErrors + static_cast<std::uint32_t>(number));
    return number < 0 ? number : E_FAIL;
}

std::int32_t numberOfResult(HRESULT result) noexcept {
    const auto code = static_cast<std::uint32_t>(result);
    if ((code & 0xFFFF0000) == runtimeErrors && (code & 0xFFFF) != 0)
        return static_cast<std::int32_t>(code & 0xFFFF);
    for (const DispatchFailure& failure : dispatchFailures) {
        if (failure.result == result)
            return failure.number;
    }
    return result;
}

AutomationError errorOfCall(HRESULT result, EXCEPINFO* details, IUnknown* component) {
    if (result == DISP_E_EXCEPTION && details) {
        if (details->pfnDeferredFillIn) {
            details->pfnDeferredFillIn(details);
            details->pfnDeferredFillIn = nullptr;
        }
        const UniqueBstr source = UniqueBstr::attach(details->bstrSource);
        const UniqueBstr description = UniqueBstr::attach(details->bstrDescription);
        const UniqueBstr helpFile = UniqueBstr::attach(details->bstrHelpFile);
        // A component fills in either its short code or its result code.
        std::int32_t number = details->scode ? numberOfResult(details->scode) : details->wCode;
        clearDetails(*details);
        if (number == 0)
            number = E_FAIL;
        std::u16string text(description.view());
        if (text.empty())
            text = number > 0 ? automation::runtimeErrorText(number) : systemText(number);
        return AutomationError(number, std::u16string(source.view()), std::move(text));
    }

    const std::int32_t number = numberOfResult(result);
    UniqueBstr source, description;
    if (const ComPtr<IErrorInfo> info = errorInfoOf(component)) {
        info->GetSource(source.put());
        info->GetDescription(description.put());
    }
    std::u16string text(description.view());
    if (text.empty())
        text = number > 0 ? automation::runtimeErrorText(number) : systemText(result);
    return AutomationError(number, source.view().empty() ? automation::controlSource : std::u16string(source.view()),
                           std::move(text));
}

HRESULT reportToThread() noexcept {
    const Report report = reportOfCurrentException();
    ComPtr<ICreateErrorInfo> create;
    ComPtr<IErrorInfo> info;
    if (report.result != E_OUTOFMEMORY && SUCCEEDED(CreateErrorInfo(create.put()))) {
        create->SetSource(report.source.get());
        create->SetDescription(report.description.get());
        if (FAILED(create.as(info)))
            info = nullptr;
    }
    // Without information of its own this failure must not show that of an earlier one.
    SetErrorInfo(0, info.get());
    return report.result;
}

HRESULT reportToCaller(EXCEPINFO* details) noexcept {
    return hand(reportOfCurrentException(), details);
}

HRESULT moveToCaller(HRESULT result, EXCEPINFO* details) noexcept {
    ComPtr<IErrorInfo> info;
    if (GetErrorInfo(0, info.put()) != S_OK)
        return result;
    Report report;
    report.result = result;
    info->GetSource(report.source.put());
    info->GetDescription(report.description.put());
    return hand(std::move(report), details);
}

} // namespace orv::windows
