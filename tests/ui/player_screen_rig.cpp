#include "tests/ui/player_screen_rig.h"

#include <QKeyEvent>

#include "platform/text.h"

namespace zelvor::testing {

void ScreenRig::MakeScreen(ScreenOrientation orientation) {
    DestroyScreen();
    m_screen = std::make_unique<CPlayerScreen>(frame, factory, orientation, host.Services());
    m_screen->show();
    QApplication::processEvents();
}

void ScreenRig::PlayList(std::initializer_list<std::u16string_view> names, int seconds) {
    TrackList list;
    for (auto name : names) {
        std::u16string path = u"\\Storage Card\\Music\\" + std::u16string(name);
        device.WriteFile(path, "audio");
        factory.script.durations[ToUtf8(name)] = seconds * kSecond;
        auto record = std::make_unique<TrackRecord>();
        record->SetField(kFieldPath, path);
        record->SetField(kFieldTitle, std::u16string(name.substr(0, name.find(u'.'))));
        list.AddTrack(std::move(record));
    }
    m_screen->ReplaceQueue(list);
}

bool ScreenRig::KeyPress(int qtKey, bool autoRepeat) {
    QKeyEvent event(QEvent::KeyPress, qtKey, Qt::NoModifier, QString(), autoRepeat);
    QApplication::sendEvent(m_screen.get(), &event);
    return event.isAccepted();
}

} // namespace zelvor::testing
