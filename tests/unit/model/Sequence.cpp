#include "Sequence.h"

#include "Difference.h"
#include "WholeDrawing.h"

#include <algorithm>

namespace model {
namespace {

// What differs after one operation; empty when nothing does.
std::string step(Model& model, Subject& subject, Observer& observer, const Operation& operation) {
    const std::string expected = model.apply(operation);
    const std::string actual = subject.apply(operation);
    if (expected != actual)
        return "the model answers " + expected + ", the engine " + actual;
    return observer.difference(model, subject);
}

using Fails = std::function<bool(const std::vector<Operation>&)>;

// Leaves out ever smaller pieces.
bool leaveOut(std::vector<Operation>& operations, const Fails& fails) {
    const std::size_t before = operations.size();
    for (std::size_t piece = std::max<std::size_t>(1, before / 2);; piece /= 2) {
        for (std::size_t at = 0; at < operations.size();) {
            std::vector<Operation> fewer = operations;
            const auto first = fewer.begin() + static_cast<std::ptrdiff_t>(at);
            fewer.erase(first, first + static_cast<std::ptrdiff_t>(std::min(piece, operations.size() - at)));
            if (fails(fewer))
                operations = std::move(fewer);
            else
                at += piece;
        }
        if (piece <= 1)
            return operations.size() < before;
    }
}

// Takes simpler arguments: none or the first of a list, all properties, or fewer bits.
bool simplify(std::vector<Operation>& operations, const Fails& fails) {
    bool simpler = false;
    for (std::size_t i = 0; i < operations.size(); ++i)
        for (std::size_t k = 0; k < argumentCount(operations[i].kind); ++k) {
            const std::uint32_t old = operations[i].arguments[k];
            std::vector<std::uint32_t> candidates{0, 1};
            for (std::uint32_t bit = 1; old < 4096 && bit <= old; bit <<= 1)
                if (old & bit)
                    candidates.push_back(old & ~bit);
            for (const std::uint32_t candidate : candidates) {
                if (candidate >= operations[i].arguments[k])
                    continue;
                std::vector<Operation> other = operations;
                other[i].arguments[k] = candidate;
                if (!fails(other))
                    continue;
                operations = std::move(other);
                simpler = true;
            }
        }
    return simpler;
}

} // namespace

std::optional<Divergence> run(const std::vector<Operation>& operations) {
    Model model;
    Subject subject;
    Observer observer;
    std::size_t i = 0;
    try {
        model.apply({Kind::Start, {}});
        for (; i < operations.size(); ++i)
            if (std::string what = step(model, subject, observer, operations[i]); !what.empty())
                return Divergence{i, std::move(what)};
    } catch (const std::exception& exception) {
        return Divergence{i, exception.what()};
    }
    const std::vector<std::string> problems = wholenessProblems(subject.database());
    return problems.empty() ? std::nullopt : std::optional(Divergence{i, "not whole: " + problems.front()});
}

std::vector<Operation> randomSequence(std::uint32_t seed, std::size_t length) {
    Generator generator(seed);
    std::vector<Operation> operations{{Kind::Start, {static_cast<std::uint32_t>(generator.random()() % 8 == 0)}}};
    while (operations.size() < length)
        operations.push_back(generator.next());
    return operations;
}

std::vector<Operation> shrink(std::vector<Operation> operations, const Fails& fails) {
    while (leaveOut(operations, fails) || simplify(operations, fails)) {
    }
    return operations;
}

std::string report(const std::vector<Operation>& operations) {
    std::string text;
    for (const Operation& operation : operations)
        text += textOf(operation) + "\n";
    if (const auto divergence = run(operations))
        text += "# after line " + std::to_string(divergence->operation + 1) + ": " + divergence->what + "\n";
    return text;
}

} // namespace model
