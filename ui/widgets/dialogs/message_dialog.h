#pragma once
// The program's own message box: a text and either OK (a notice) or Yes and
// No (a question), in the skin's look. Every question and notice of the
// program goes through it, never through the platform's message box.
//
// Answers, each ending the dialog: OK or Enter 1 (accepted), Escape 2
// (cancelled), Yes 6 (accepted), No 1 (cancelled). No deliberately answers 1,
// like OK: callers test for kIdYes only and take anything else as a refusal.

#include <QDialog>
#include <cstdint>
#include <string>
#include <string_view>

#include "ui/rules/dialogs/dialog_results.h"
#include "ui/widgets/dialogs/skinned_dialog.h"

namespace zelvor {

class CMessageDialog : public CSkinnedDialog {
    Q_OBJECT
public:
    explicit CMessageDialog(QWidget* parent); // result 1, empty text, a notice

    // Copied, cut at 127 characters (a longer text was never provided for;
    // cutting it is the safe reading of the 128-character field).
    void SetText(std::u16string_view text);
    // The built-in English text of a string-table number (not the localised
    // one); a number the table lacks empties the text.
    void SetText(std::uint16_t builtInTextId);
    void SetType(int type); // kMbOk or kMbYesNo (any type with bit 4: a question)
    // The play list panel's own confirmation: only OK, whatever the type.
    void ShowOnlyOk();
    int DoModal(); // runs it; the result
    int Result() const { return m_result; }
    const std::u16string& Text() const { return m_text; }

    void accept() override; // OK, Enter
    void reject() override; // Escape

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Answer(int result, bool accepted);

    std::u16string m_text;
    int m_result = kIdOk;
    int m_type = kMbOk;
    bool m_onlyOk = false;
};

} // namespace zelvor
