#include "RatioReporter.h"

#include <cstdio>

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.error_occurred)
            std::fprintf(stderr, "%s: %s\n", run.run_name.function_name.c_str(), run.error_message.c_str());
        else if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median")
            m_milliseconds[run.run_name.function_name] = run.GetAdjustedRealTime();
    }
}

void RatioReporter::print() const {
    std::printf("%-28s %9s %12s %7s %6s  %s\n", "name", "ms", "bytes", "ratio", "aim", "met?");
    for (const Row& row : m_rows) {
        const auto found = m_milliseconds.find(row.name);
        if (found == m_milliseconds.end())
            continue;
        std::printf("%-28s %9.4f %12zu", row.name, found->second, row.bytes);
        const auto base = row.against ? m_milliseconds.find(row.against) : m_milliseconds.end();
        if (base != m_milliseconds.end()) {
            const double ratio = found->second / base->second;
            std::printf(" %7.2f", ratio);
            if (row.aim > 0)
                std::printf(" %6.1f  %s", row.aim, ratio <= row.aim ? "yes" : "no");
        }
        std::printf("\n");
    }
}
