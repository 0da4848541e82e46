#include "FileProblems.h"

namespace zdr {
namespace {

ProblemTeller g_teller = nullptr;

} // namespace

void setProblemTeller(ProblemTeller teller) {
    g_teller = teller;
}

void tellProblem(const std::wstring& sentence) {
    if (g_teller)
        g_teller(sentence);
}

} // namespace zdr
