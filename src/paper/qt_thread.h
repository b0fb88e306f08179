// The thread in which Qt lives, in a program with many that has no display.
#pragma once

#include <functional>

namespace cuvexa::paper {

/// Runs `work` there and waits for it; what it throws is thrown here. The thread begins with the first call and stays.
void in_qt_thread(const std::function<void()>& work);

}  // namespace cuvexa::paper
