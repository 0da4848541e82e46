// Entities and layouts between a drawing and the tables of its file.
#pragma once

#include "FileFormat.h"
#include "ReadContext.h"

namespace zdr {

class FileNumbers;

using EntityTables = flatbuffers::Vector<flatbuffers::Offset<file::Entity>>;

/// `owner` is the layout of the entities, null for model space.
std::vector<Entity> readEntities(const EntityTables& source, const Place* owner, ReadContext& context);
Layout readLayout(const file::Layout& source, const Place& place, std::size_t layerCount, ReadContext& context);

/// Whether the drawing's current viewport is one of its active layout.
bool hasCurrentViewport(const Drawing& drawing);

flatbuffers::Offset<EntityTables> writeEntities(flatbuffers::FlatBufferBuilder& builder,
                                                const std::vector<Entity>& entities, const FileNumbers& numbers);
flatbuffers::Offset<file::Layout> writeLayout(flatbuffers::FlatBufferBuilder& builder, const Layout& layout,
                                              const FileNumbers& numbers);

} // namespace zdr
