#pragma once
// The menu the player's Menu button opens: "About" shows the About box,
// "Exit" ends the program (by the callback, which posts WM_CLOSE).

#include <QDialog>
#include <QMenu>
#include <functional>

namespace zelvor {

// A new menu owned by parent.
QMenu* MakeFrameMenu(QWidget* parent, std::function<void()> exit);

// The About box: the program's name and version, its maker, and OK.
class AboutDialog final : public QDialog {
    Q_OBJECT
public:
    explicit AboutDialog(QWidget* parent);
};

} // namespace zelvor
