// When the user has left a box: moved on to another one, or pressed Enter in it.
#pragma once

#include <functional>

class QLineEdit;

namespace brelwin {

// Calls the function each time. A box is not left when its context menu opens or when a message or another
// program's window comes in front.
void WhenLeft(QLineEdit& edit, std::function<void()> function);

}  // namespace brelwin
