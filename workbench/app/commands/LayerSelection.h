// The layers that a command means, the values it gives them, and the sentences about both.
#pragma once

#include "CommandText.h"

#include <cstdint>
#include <optional>
#include <span>

namespace workbench {

class Session;

/// The layers that words name: names and patterns, several in one word with commas between. In table order, each once.
/// When a part of a word names no layer, tells the user so and answers none.
std::optional<std::vector<std::size_t>> selectLayers(Session& session, std::span<const std::wstring> words);
/// The same; without words, the current layer.
std::optional<std::vector<std::size_t>> selectLayersOrCurrent(Session& session, std::span<const std::wstring> words);

/// "1 layer is", "7 layers are".
std::wstring layersAre(std::size_t count);

/// A layer's name as the drawing spells it, in quotes.
std::wstring layerQuotation(const Session& session, std::size_t layer);

/// A value that is to be given to layers, read from what was typed. When it isn't one, or the drawing lacks it, tells
/// the user what to type and answers none.
std::optional<std::uint32_t> colorOf(Session& session, const std::wstring& text);
std::optional<std::int16_t> lineWeightOf(Session& session, const std::wstring& text);
std::optional<std::uint32_t> linetypeOf(Session& session, const std::wstring& text);
std::optional<std::uint32_t> plotStyleOf(Session& session, const std::wstring& text);

} // namespace workbench
