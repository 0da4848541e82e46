// The operations that the model test does: what they are called, what they take, and how they are written down, so that
// a sequence can be printed, kept and replayed.
#pragma once

#include "KelCmColor.h"

#include <array>
#include <cstdint>
#include <iosfwd>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace model {

enum class Kind : std::uint8_t {
    Save,
    SaveWithViewport,
    Restore,
    RestoreQuietly,
    Rename,
    Delete,
    SetMask,
    Describe,
    AddLayersToState,
    RemoveLayersFromState,
    UpdateStateLayer,
    AskLayers,
    Compare,
    SetLayer,
    DescribeLayer,
    AddLayer,
    RenameLayer,
    EraseLayer,
    SetCurrent,
    SetLayout,
    SetViewport,
    FreezeInViewport,
    Override,
    Attach,
    Detach,
    Begin,
    End,
    Undo,
    Redo,
    Reload,
    Shelve,
    ImportFromShelf,
    Export,
    Import,
    Clone,
    PutBack,
    RegisterApplication,
    SetData,
    Start,
};

struct Operation {
    Kind kind = Kind::Undo;
    std::array<std::uint32_t, 5> arguments{};
};

/// The names that arguments of operations stand for. Some differ in case alone, some can't be names.
std::string_view stateName(std::uint32_t argument);
std::string_view layerName(std::uint32_t argument);
/// The names of the layers whose bits are set.
std::vector<std::string_view> layerNames(std::uint32_t bits);
std::string_view applicationName(std::uint32_t argument);

/// The properties of a layer that one argument stands for.
struct Look {
    std::uint32_t flags = 0; ///< zdr::LayerFlag
    KelCmColor color;
    std::string linetype;
    int weight = -3;
    std::string plotStyle;
    friend bool operator==(const Look&, const Look&) = default;
};
Look lookOf(std::uint32_t argument);

/// What an argument of SetLayer names.
enum Property : std::uint32_t { kOff, kFrozen, kLocked, kPlot, kNewViewport, kColor, kLinetype, kWeight, kPlotStyle };

/// An argument of a mask that stands for the state's own.
inline constexpr std::uint32_t kOwnMask = ~std::uint32_t{0};

/// Makes operations up, often about the same state and layer as the ones before.
class Generator {
  public:
    explicit Generator(std::uint32_t seed) : m_random(seed) {}
    Operation next();
    std::mt19937& random() { return m_random; }

  private:
    std::mt19937 m_random;
    std::uint32_t m_state = 0, m_layer = 0;
};

/// A line of text, and back; none for a line that isn't one.
std::string textOf(const Operation& operation);
std::optional<Operation> operationOf(std::string_view line);
/// How many arguments an operation has.
std::size_t argumentCount(Kind kind);

/// Reads a text with one operation a line, and passes over lines that begin with #; none when a line isn't an
/// operation.
std::optional<std::vector<Operation>> readOperations(std::istream& in);

} // namespace model
