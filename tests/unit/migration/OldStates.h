// The layer states of an older store as a drawing holds them, to tell later whether all of them are still there.
#pragma once

#include "LayerSnapshots.h"
#include "PlainReading.h"
#include "engine/DatabaseAccess.h"

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

/// An older store, and how it is read without converting anything.
struct OldStore {
    const wchar_t* application; ///< of its extended data
    /// How many nodes a state takes in the data of a layer, from the node of this text on.
    std::wstring (*firstText)(const std::wstring& state);
    std::ptrdiff_t nodes;
    /// Those of the working drawing.
    std::function<std::vector<std::wstring>()> names;
    std::function<void(const wchar_t* state)> putOn; ///< puts a state on its layers
};

/// That of the older layer tool.
OldStore olderTool();
/// That of the add-on, whose exports are all there.
OldStore snapshotsOfAddOn(FindAddOnFunction find);

class OldStates {
  public:
    /// Puts each state on its layers to see what it is, and leaves the drawing, which is the working one, as it was.
    OldStates(KelDbDatabase& database, const OldStore& store);

    std::size_t count() const { return m_parts.size(); }
    /// Those that a drawing has neither in the older store, with all that they are, nor among its layer states.
    std::vector<std::wstring> lostIn(const zdr::Drawing& drawing) const;
    /// Those that it doesn't have among its layer states.
    std::vector<std::wstring> notBroughtTo(const zdr::Drawing& drawing) const;

  private:
    /// What a state is on one layer.
    struct Part {
        std::size_t layer;
        zdr::Handle object;
        plain::Nodes nodes;
        engine::LayerValues values;
    };
    /// With the values that the layers have now.
    std::vector<Part> partsOf(const std::wstring& state, const OldStore& store, const KelDbDatabase& database) const;
    plain::Nodes nodesOn(const zdr::Drawing& drawing, zdr::Handle object) const;
    bool isInOldStore(const zdr::Drawing& drawing, const std::vector<Part>& parts) const;

    std::wstring m_application;
    std::map<std::wstring, std::vector<Part>> m_parts;
};

/// The layers of a drawing and which of them is current.
using Looks = std::pair<std::vector<engine::LayerValues>, std::wstring>;
Looks looksOf(const zdr::Drawing& drawing);
/// Whether a drawing's layers look so, or one of its states keeps them so.
bool keepsLooks(const zdr::Drawing& drawing, const Looks& looks);

/// Gives the throw-away state of a conversion that was stopped another name, as the next one's has, which comes in
/// another second.
void renameThrowAwayState(zdr::Drawing& stopped);
