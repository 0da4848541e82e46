// The simple model: a drawing as plain structs, everything named by text and found by looking through lists, and a
// whole copy of the drawing for each step that can be undone. It is meant to be right at a glance, not fast.
#pragma once

#include "Operation.h"

#include <deque>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace model {

struct Layer {
    int id = 0; ///< its own, for good
    std::string name;
    std::string description;
    Look look;
    bool dependent = false; ///< of the reference
    friend bool operator==(const Layer&, const Layer&) = default;
};

struct StateLayer {
    std::string name;
    Look look; ///< its flags also hold zdr::kLayerViewportFrozen
    friend bool operator==(const StateLayer&, const StateLayer&) = default;
};

struct State {
    int id = 0;
    std::string name;
    std::string description;
    std::uint32_t mask = 0;
    bool withViewport = false;
    bool dependent = false;
    std::optional<std::string> current;
    std::vector<StateLayer> layers;
    friend bool operator==(const State&, const State&) = default;
};

/// What one viewport shows of layers instead of their own, by the layers' ids.
struct Override {
    std::uint32_t mask = 0;
    Look look;
    friend bool operator==(const Override&, const Override&) = default;
};
struct Viewport {
    std::set<int> frozen;
    std::map<int, Override> overrides;
    friend bool operator==(const Viewport&, const Viewport&) = default;
};

inline constexpr std::size_t kViewportCount = 4; ///< on Layout1: numbers 2, 3 and one that is off; one on Layout2

struct Drawing {
    bool colorDependent = false;
    std::vector<Layer> layers;
    std::vector<State> states;
    int current = 0; ///< id of a layer
    std::optional<std::string> lastRestored;
    Viewport viewports[kViewportCount];
    std::vector<std::string> linetypes, plotStyles;
    std::vector<std::string> applications;
    std::map<std::pair<int, std::string>, int> data; ///< by layer and application
    bool resolved = false;                           ///< the reference "site"
    friend bool operator==(const Drawing&, const Drawing&) = default;
};

/// What is looked at. It belongs to no step.
struct Sight {
    std::optional<std::size_t> layout;
    std::optional<std::size_t> viewport;
};

/// Equal without regard to case, for the plain letters that the names here are made of.
bool same(std::string_view a, std::string_view b);
/// The same text in lower case.
std::string folded(std::string_view text);

/// The model, with everything that an operation can refer to.
class Model {
  public:
    /// Does an operation; answers what the engine is to answer.
    std::string apply(const Operation& operation);

    const Drawing& drawing() const { return m_now; }
    const Sight& sight() const { return m_sight; }
    bool canUndo() const { return !m_done.empty() || m_open; }
    bool canRedo() const { return !m_undone.empty() && !m_open; }

    /// The drawing that a sequence begins with.
    static Drawing start(bool colorDependent);
    /// What the reference shows: one of two drawings.
    static Drawing site(std::uint32_t variant);

  private:
    using Arguments = std::array<std::uint32_t, 5>;

    std::string applyToState(const Operation& operation);
    std::string applyToLayer(const Operation& operation);
    std::string applyToDrawing(const Operation& operation);

    int save(std::string_view name, std::uint32_t mask, const Viewport* viewport);
    int restore(const State& state, Viewport* viewport, std::uint32_t flags, std::uint32_t mask, bool remember);
    void chooseCurrent(const State& state, const Drawing& before);
    bool thawCurrent(const Drawing& before);
    int rename(State& state, std::string_view name);
    void remove(State& state);
    bool addLayers(State& state, std::uint32_t bits);
    bool removeLayers(State& state, std::uint32_t bits);
    bool updateLayer(State& state, const Arguments& arguments);
    std::string askLayers(const State& state, bool others) const;
    bool matches(const State& state, const Viewport* viewport) const;
    int insert(State state);
    std::string import(std::uint32_t file);
    int putBack(std::string_view name);

    int setLayer(Layer& layer, std::uint32_t property, const Look& look);
    int addLayer(std::string_view name, const Look& look);
    int renameLayer(Layer& layer, std::string_view name);
    int eraseLayer(Layer& layer);
    int setCurrent(const Layer* layer);
    int setData(const Layer& layer, std::string_view application, std::uint32_t number);
    void attach(const Drawing& site);
    void reload();
    void dropDependentStates();
    void listStylesOfLayers();

    bool undo();
    bool redo();
    void closeGroup();
    void closeStep();
    void forgetSteps();

    State* findState(std::string_view name);
    Layer* findLayer(std::string_view name);
    const Layer* findLayer(std::string_view name) const;
    bool isResolved(const Layer& layer) const { return !layer.dependent || m_now.resolved; }
    std::uint32_t availableStyles(const Look& look) const;
    Look shown(const Layer& layer, const Viewport* viewport) const;
    Viewport* viewportOf(std::uint32_t argument) { return argument == 0 ? nullptr : &m_now.viewports[argument - 1]; }

    Drawing m_now;
    Sight m_sight;
    bool m_changed = false; ///< by the operation under way
    std::optional<Drawing> m_open;
    std::deque<Drawing> m_done, m_undone;
    std::deque<Drawing> m_undoneBefore; ///< before the open group
    bool m_openHasMore = false;         ///< the open step changed what comparing drawings doesn't settle
    int m_depth = 0;
    int m_nextId = 1000;
    std::vector<State> m_shelf;
    std::map<std::uint32_t, State> m_files;
    std::optional<State> m_clone;
    bool m_cloneIsGood = false; ///< its drawing is still there
};

/// The status of a name that is given to a layer or a state.
int checkName(std::string_view name);
bool has(const std::vector<std::string>& names, std::string_view name);

} // namespace model
