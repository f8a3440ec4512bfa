#include "ui/main_frame/frame_menu.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

namespace zelvor {

QMenu* MakeFrameMenu(QWidget* parent, std::function<void()> exit) {
    auto* menu = new QMenu(parent);
    menu->addAction(QStringLiteral("About"), parent, [parent] {
        AboutDialog about(parent);
        about.exec();
    });
    menu->addAction(QStringLiteral("Exit"), parent, std::move(exit));
    return menu;
}

AboutDialog::AboutDialog(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("About MP3 Player"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("MP3 Player Version 2.0"), this));
    // The maker, as the profile values' company key names it.
    layout->addWidget(new QLabel(QStringLiteral("Quorrel Systems Inc."), this));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    layout->addWidget(buttons);
}

} // namespace zelvor
