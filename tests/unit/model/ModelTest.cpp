// The engine against a simple model, over long random sequences of operations. A difference is shrunk and printed as a
// test case that can be kept in cases/ and replayed.
//   KEL_MODEL_OPERATIONS=5000000   how many operations instead of 100,000 (20,000 in a quick run)
//   KEL_MODEL_SEED=17              begins with the sequence of this seed, instead of 1
//   KEL_MODEL_REPLAY=case.txt      runs the operations of a file alone

#include "Sequence.h"

#include <gmock/gmock.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
extern "C" void __sanitizer_set_death_callback(void (*callback)());
#define KEL_TELLS_OF_ITS_DEATH
#endif
#endif

namespace model {
namespace {

std::uint32_t g_seed = 0; // of the sequence that is being run

// A sequence that ends the program can't be shrunk, but it can be run again.
void tellSeedOnDeath() {
#ifdef KEL_TELLS_OF_ITS_DEATH
    __sanitizer_set_death_callback([] { std::fprintf(stderr, "That was the sequence of seed %u.\n", g_seed); });
#endif
}

const char* variable(const char* name) {
    const char* value = std::getenv(name);
    return value && *value ? value : nullptr;
}

std::size_t operationsToDo() {
    if (const char* count = variable("KEL_MODEL_OPERATIONS"))
        return std::strtoull(count, nullptr, 10);
    const char* quick = variable("KEL_TEST_QUICK");
    return quick && *quick == '1' ? 20'000 : 100'000;
}

// Mostly short sequences, which shrink well, and a long one now and then, beyond the steps that can be undone.
std::size_t lengthOf(std::uint32_t seed) {
    return seed % 25 == 0 ? 2000 : 150;
}

std::vector<Operation> shrunk(const std::vector<Operation>& operations, const Divergence& divergence) {
    std::vector<Operation> first = operations;
    first.resize(std::min(first.size(), divergence.operation + 1));
    return shrink(std::move(first), [](const std::vector<Operation>& fewer) { return run(fewer).has_value(); });
}

std::vector<Operation> readCase(const std::filesystem::path& path) {
    std::ifstream in(path);
    const auto operations = readOperations(in);
    EXPECT_TRUE(operations && !operations->empty()) << path << " isn't a list of operations";
    return operations.value_or(std::vector<Operation>());
}

std::string whatDiffers(const std::vector<Operation>& operations) {
    const auto divergence = run(operations);
    return divergence ? report(shrunk(operations, *divergence)) : "";
}

} // namespace

TEST(Model, agreesWithTheEngineOverRandomSequences) {
    const char* replay = variable("KEL_MODEL_REPLAY");
    if (replay) {
        EXPECT_EQ(whatDiffers(readCase(replay)), "");
        return;
    }
    const char* firstSeed = variable("KEL_MODEL_SEED");
    auto seed = static_cast<std::uint32_t>(firstSeed ? std::strtoul(firstSeed, nullptr, 10) : 1);
    std::size_t done = 0;
    tellSeedOnDeath();
    for (const std::size_t wanted = operationsToDo(); done < wanted; ++seed) {
        g_seed = seed;
        const std::vector<Operation> operations = randomSequence(seed, lengthOf(seed));
        const auto divergence = run(operations);
        ASSERT_FALSE(divergence) << "seed " << seed << ", operation " << divergence->operation << ", "
                                 << divergence->what << ". The shortest case found:\n"
                                 << report(shrunk(operations, *divergence));
        done += operations.size();
    }
    RecordProperty("operations", std::to_string(done));
    std::printf("%zu operations, seeds up to %u\n", done, seed - 1);
}

TEST(Model, agreesWithTheEngineInEveryCaseThatOnceDiffered) {
    int cases = 0;
    for (const auto& entry : std::filesystem::directory_iterator(MODEL_CASES)) {
        EXPECT_EQ(whatDiffers(readCase(entry.path())), "") << entry.path();
        ++cases;
    }
    EXPECT_GT(cases, 0);
}

TEST(ModelOperations, areReadAsTheyAreWritten) {
    Generator generator(5);
    for (int i = 0; i < 1000; ++i) {
        const Operation operation = generator.next();
        const auto read = operationOf(textOf(operation));
        ASSERT_TRUE(read) << textOf(operation);
        EXPECT_EQ(textOf(*read), textOf(operation));
    }
}

TEST(ModelOperations, thatMakeNoSenseAreNotRead) {
    for (const char* line : {"", "sav Plan 1", "save Plan", "save Nobody 1", "save Plan 1 2", "save Plan 4000"})
        EXPECT_FALSE(operationOf(line)) << line;
    std::istringstream in("# a remark\n\n  undo\nredo # another\n");
    const auto operations = readOperations(in);
    ASSERT_TRUE(operations);
    EXPECT_EQ(operations->size(), 2u);
}

TEST(ModelOperations, areTheSameForTheSameSeed) {
    std::string text;
    for (const Operation& operation : randomSequence(1, 4))
        text += textOf(operation) + "\n";
    std::string again;
    for (const Operation& operation : randomSequence(1, 4))
        again += textOf(operation) + "\n";
    EXPECT_EQ(text, again);
    EXPECT_NE(randomSequence(2, 4)[1].arguments, randomSequence(3, 4)[1].arguments);
}

TEST(Shrinking, leavesWhatMatters) {
    const auto fails = [](const std::vector<Operation>& operations) {
        const auto is = [](Kind kind) { return [kind](const Operation& operation) { return operation.kind == kind; }; };
        const auto save = std::ranges::find_if(operations, is(Kind::Save));
        return save != operations.end() && save->arguments[1] & 32 &&
               std::find_if(save, operations.end(), is(Kind::Undo)) != operations.end();
    };
    std::uint32_t seed = 1;
    while (!fails(randomSequence(seed, 200)))
        ++seed;
    std::string text;
    for (const Operation& operation : shrink(randomSequence(seed, 200), fails))
        text += textOf(operation) + "\n";
    EXPECT_EQ(text, "save Plan 32\nundo\n");
}

} // namespace model
