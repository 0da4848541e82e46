#include "CommandLineOutput.h"

#include "CommandLineFormat.h"
#include "files/FileProblems.h"
#include "instruments/HostCalls.h"
#include "KelRuntime.h"
#include "ResultBuffer.h"

#include <cstdio>
#include <cstdlib>
#include <new>
#include <optional>

using instruments::HostCall;

namespace {

runtime::OutputSink g_sink;
runtime::AbortHandler g_abortHandler;

/// None when memory runs out.
std::optional<std::wstring> formatted(const wchar_t* format, std::va_list arguments) {
    try {
        return runtime::formatForCommandLine(format, arguments);
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

/// Where memory runs out nothing is told.
void printProblem(const std::wstring& sentence) {
    try {
        runtime::print(sentence + L"\n");
    } catch (const std::bad_alloc&) {
        return;
    }
}

} // namespace

int kelutPrintf(const wchar_t* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    const std::optional<std::wstring> text = formatted(format, arguments);
    va_end(arguments);
    if (!text)
        return kResultError;
    HostCall call("kelutPrintf", *text);
    return call.valueOr(kResultError, [&text] {
        runtime::print(*text);
        return kResultNormal;
    });
}

void kelrt_abort(const wchar_t* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    const std::optional<std::wstring> text = formatted(format, arguments);
    va_end(arguments);
    if (text) {
        HostCall call("kelrt_abort", *text);
        if (g_abortHandler)
            g_abortHandler(*text);
    }
    std::fprintf(stderr, "%ls\n", text ? text->c_str() : format);
    std::abort();
}

namespace runtime {

void setOutputSink(OutputSink sink) {
    g_sink = std::move(sink);
    zdr::setProblemTeller(g_sink ? &printProblem : nullptr);
}

void print(const std::wstring& text) {
    if (g_sink)
        g_sink(text);
}

void setAbortHandler(AbortHandler handler) {
    g_abortHandler = std::move(handler);
}

} // namespace runtime
