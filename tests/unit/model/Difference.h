// What is different between the model and the engine.
#pragma once

#include "Subject.h"

namespace model {

/// Tells the first difference between the model's drawing and the engine's, and remembers which handle belongs to which
/// of the model's objects, because that must never change.
class Observer {
  public:
    /// Empty when both hold the same.
    std::string difference(const Model& model, Subject& subject);

  private:
    std::map<int, zdr::Handle> m_handles;
};

} // namespace model
