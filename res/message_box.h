#pragma once
// The kinds and answers of the program's own message box, without a
// toolkit, so that rules which ask questions through a feedback interface
// and the dialog that asks them share one definition. The values are the
// device's (MB_YESNO, IDOK, IDCANCEL, IDYES): callers test for kIdYes only.

namespace zelvor {

// Kinds: a notice with OK, or a question with Yes and No (bit 4).
constexpr int kMbOk = 0;
constexpr int kMbYesNo = 4;

// Answers.
constexpr int kIdOk = 1;
constexpr int kIdCancel = 2;
constexpr int kIdYes = 6;

} // namespace zelvor
