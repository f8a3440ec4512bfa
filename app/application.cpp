#include "app/application.h"

#include "config/application_values.h"
#include "config/settings.h"

namespace zelvor {

bool CZelvorApp::InitInstance(std::u16string_view commandLine) {
    m_shell.SetRegistryKey(kCompanyKey);
    if (!ApplyInstanceRules(m_environment, commandLine))
        return false;

    GetProgramDirectory(); // fixed for the run from here on
    ApplicationValues& values = AppValues();
    values.language = ReadLanguage();
    values.guiColor = ReadGuiColor();
    m_shell.SelectSkin(values.guiColor);

    values.portrait = PortraitFlag(m_environment.ScreenWidth(), m_environment.ScreenHeight());
    CreateProgramFolders();
    // A frame that cannot be made ends start-up rather than leaving a
    // program without a window behind.
    if (!m_shell.LoadFrame()) {
        m_shell.DestroyFrame();
        return false;
    }
    m_shell.ShowFrame();
    return true;
}

int CZelvorApp::ExitInstance() {
    m_shell.DestroyFrame();
    m_shell.ReleaseSkin();
    return 0;
}

} // namespace zelvor
