#pragma once
// The About box: the program's icon, name and version, its maker, and OK
// (result 1). Nothing else happens in it.

#include <QDialog>

#include "ui/widgets/dialogs/skinned_dialog.h"

namespace zelvor {

class CAboutDialog : public CSkinnedDialog {
    Q_OBJECT
public:
    explicit CAboutDialog(QWidget* parent);
    int DoModal(); // 1 when closed with OK or Enter, 2 with Escape
};

} // namespace zelvor
