#include "ui/widgets/dialogs/message_dialog.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

#include "config/local_text.h"

namespace zelvor {
namespace {

// Template 5001, in dialog units. The text keeps the room down to the
// buttons: DejaVu Sans runs wider than Tahoma, and a full 127-character text
// must still show.
constexpr int kWidth = 150, kHeight = 71, kButtonHeight = 14;
constexpr DialogRect kTextPlace{9, 11, 130, 38};
constexpr DialogRect kOkPlace{54, 51, 42, kButtonHeight};
constexpr DialogRect kYesPlace{17, 51, 50, kButtonHeight};
constexpr DialogRect kNoPlace{82, 51, 50, kButtonHeight};

} // namespace

CMessageDialog::CMessageDialog(QWidget* parent)
    : CSkinnedDialog(parent, QStringLiteral("MP3 Player"),
                     DialogPixelSize(kWidth, kHeight, kButtonHeight)) {
    auto* text = new QLabel(this);
    text->setWordWrap(true);
    text->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    Place(text, kIdMessageText, DialogRectToPixels(kTextPlace));
    QPushButton* ok = AddButton(kIdOk, QStringLiteral("OK"), kOkPlace, true);
    ok->setDefault(true);
    QPushButton* yes = AddButton(kIdMessageYes, QStringLiteral("Yes"), kYesPlace, true);
    QPushButton* no = AddButton(kIdMessageNo, QStringLiteral("No"), kNoPlace, false);
    yes->hide();
    no->hide();
    connect(ok, &QPushButton::clicked, this, &CMessageDialog::accept);
    connect(yes, &QPushButton::clicked, this, [this] { Answer(kIdYes, true); });
    connect(no, &QPushButton::clicked, this, [this] { Answer(kIdOk, false); });
}

void CMessageDialog::SetText(std::u16string_view text) {
    m_text = CutMessageText(text);
}

void CMessageDialog::SetText(std::uint16_t builtInTextId) {
    const char16_t* text = LoadBuiltInText(builtInTextId);
    SetText(text ? std::u16string_view(text) : std::u16string_view());
}

void CMessageDialog::SetType(int type) {
    m_type = type;
}

void CMessageDialog::ShowOnlyOk() {
    m_onlyOk = true;
}

int CMessageDialog::DoModal() {
    exec();
    return m_result;
}

void CMessageDialog::accept() {
    Answer(kIdOk, true);
}

void CMessageDialog::reject() {
    Answer(kIdCancel, false);
}

void CMessageDialog::Answer(int result, bool accepted) {
    m_result = result;
    if (accepted)
        QDialog::accept();
    else
        QDialog::reject();
}

// On opening: the text goes in, and a question swaps OK for Yes and No.
void CMessageDialog::showEvent(QShowEvent* event) {
    static_cast<QLabel*>(Item(kIdMessageText))->setText(QString::fromStdU16String(m_text));
    const bool question = (m_type & kMbYesNo) != 0 && !m_onlyOk;
    Item(kIdOk)->setVisible(!question);
    Item(kIdMessageYes)->setVisible(question);
    Item(kIdMessageNo)->setVisible(question);
    CSkinnedDialog::showEvent(event);
}

// Enter is OK whichever buttons show (the hidden OK stays the default).
void CMessageDialog::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        accept();
        return;
    }
    CSkinnedDialog::keyPressEvent(event);
}

} // namespace zelvor
