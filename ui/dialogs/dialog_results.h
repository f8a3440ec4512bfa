#pragma once
// The answers and kinds of the program's message dialog, without a toolkit,
// so that rules which ask questions (through a feedback interface) can use
// them too. The values are the device's own (IDOK, IDCANCEL, IDYES, MB_YESNO).

namespace zelvor {

// Results.
constexpr int kIdOk = 1;
constexpr int kIdCancel = 2;
constexpr int kIdYes = 6;

// Types: a notice with OK, or a question with Yes and No (bit 4).
constexpr int kMbOk = 0;
constexpr int kMbYesNo = 4;

// The dialogs' control ids; a control is found by its id as its object name.
constexpr int kIdMessageText = 3006;
constexpr int kIdMessageYes = 3009;
constexpr int kIdMessageNo = 3010;
constexpr int kIdUpdateProgress = 3003;
constexpr int kIdUpdateCount = 3004;
constexpr int kIdUpdateMessage = 3005;

} // namespace zelvor
