#include "CommandLineOutput.h"

#include "CommandLineFormat.h"
#include "files/FileProblems.h"
#include "instruments/HostCalls.h"
#include "KelRuntime.h"
#include "ResultBuffer.h"

#include <cstdio>
#include <cstdlib>
#include <new>

using instruments::HostCall;

namespace {

runtime::OutputSink g_sink;
runtime::AbortHandler g_abortHandler;

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
    const std::wstring text = runtime::formatForCommandLine(format, arguments);
    va_end(arguments);
    HostCall call("kelutPrintf", text);
    if (call.fault())
        return call.answer(kResultError);
    runtime::print(text);
    return call.answer(kResultNormal);
}

void kelrt_abort(const wchar_t* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    const std::wstring text = runtime::formatForCommandLine(format, arguments);
    va_end(arguments);
    HostCall call("kelrt_abort", text);
    if (g_abortHandler)
        g_abortHandler(text);
    std::fprintf(stderr, "%ls\n", text.c_str());
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
