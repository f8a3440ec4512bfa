#pragma once
// A device with three tiny music files (two on the card, one on the flash
// disk) and a record builder that only counts: an update over it is fast.

#include <QKeyEvent>
#include <QCoreApplication>
#include <functional>

#include "config/settings.h"
#include "tests/support/test_device.h"
#include "tests/ui/main_frame_app.h"
#include "ui/widgets/dialogs/update_lib_dlg.h"

namespace zelvor::testing {

class UpdateDialogRig {
public:
    UpdateDialogRig() {
        EnsureWidgetApplication();
        device.WriteFile(GetStorageCardRoot() + u"\\a.mp3", "a");
        device.WriteFile(GetStorageCardRoot() + u"\\Albums\\b.mp3", "b");
        device.WriteFile(GetFlashDiskRoot() + u"\\c.mp3", "c");
    }
    // A dialog set up as the browser sets it up.
    std::unique_ptr<CUpdateLibDlg> MakeDialog() {
        auto dialog = std::make_unique<CUpdateLibDlg>(nullptr, [this](std::u16string_view path, int) {
            ++built;
            if (onBuild)
                onBuild(built);
            auto record = std::make_unique<TrackRecord>();
            record->SetField(kFieldPath, path);
            return record;
        });
        dialog->SetRoot(u"\\");
        dialog->SetStorageFolders(GetStorageCardRoot(), GetFlashDiskRoot());
        return dialog;
    }
    static void PostKey(QWidget& target, int key) {
        QCoreApplication::postEvent(&target, new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier));
    }

    TestDevice device;
    int built = 0;                      // records the builder was asked for
    std::function<void(int)> onBuild;   // called with the running count
};

} // namespace zelvor::testing
