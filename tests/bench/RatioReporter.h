// Prints the medians of a Google Benchmark run as one table, each beside the operation that it is measured against.
#pragma once

#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <vector>

class RatioReporter : public benchmark::BenchmarkReporter {
  public:
    struct Row {
        const char* name;
        std::size_t bytes;
        const char* against = nullptr; ///< null for what others are measured against
        double aim = 0;                ///< the ratio not to be exceeded; 0: none
    };
    /// Adds a benchmark that is going to run. The table has the order of these calls.
    void expect(Row row) { m_rows.push_back(row); }
    void print() const;

    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;

  private:
    std::vector<Row> m_rows;
    std::map<std::string, double> m_milliseconds;
};
