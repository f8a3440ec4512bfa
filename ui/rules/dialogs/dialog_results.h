#pragma once
// The ids of the dialogs' controls, without a toolkit; the message box's
// kinds and answers come with them.

#include "res/message_box.h"

namespace zelvor {

// The dialogs' control ids; a control is found by its id as its object name.
constexpr int kIdMessageText = 3006;
constexpr int kIdMessageYes = 3009;
constexpr int kIdMessageNo = 3010;
constexpr int kIdUpdateProgress = 3003;
constexpr int kIdUpdateCount = 3004;
constexpr int kIdUpdateMessage = 3005;

} // namespace zelvor
