// What whoever chooses the next step looks at.
#pragma once

#include <map>

#include "simulator/step.h"

namespace cuvexa::simulator {

class Scene {
public:
    virtual ~Scene() = default;

    virtual Date now() const = 0;
    /// What each step made.
    virtual const std::map<int, Made>& made() const = 0;
    /// Whether the last step ended its session: the objects are gone.
    virtual bool restarted() const = 0;
};

}  // namespace cuvexa::simulator
