#pragma once
// A scripted walk through the player for demonstrations and headless
// checks (`zelvor --tour DIR`): the first start, the library found, play,
// pause, next, seek, random, repeat, volume; the play list panel from the
// Menu button (a row deleted, the list handed on, again in landscape, left);
// with the real browser screen the browser too (Artists, an artist, playing
// from it, adding a song to "My Favourites 2", opening and playing that list,
// the library update dialog, back to the player); then a colour change and
// the turn to landscape. Each step is done the way a user or the shell would
// do it (keys and taps on the panes, the shell's messages to the frame), with
// a picture of the frame (and of a menu or dialog open over it) saved after
// each step as DIR/NN-step.png. At the end the frame is asked to close, as
// the shell would.
//
// The frame is borrowed and must outlive the tour (it ends with the frame).
// pace scales every wait (1 = as a person would watch it; tests go faster).

#include <QObject>
#include <QPixmap>
#include <QString>
#include <functional>
#include <vector>

namespace zelvor {

class CMainFrame;

class DemoTour final : public QObject {
    Q_OBJECT
public:
    DemoTour(CMainFrame& frame, QString folder, double pace = 1.0, QObject* parent = nullptr);
    void Start();

    // One line per picture saved: "step: file".
    const QStringList& Saved() const { return m_saved; }

private:
    struct Step {
        const char* name;
        std::function<void()> action;
        int settleMs; // how long the player runs before the picture
        // When given, the picture waits (a while at most) until it holds.
        std::function<bool()> until = {};
    };
    void RunStep(std::size_t index);
    void Snapshot(std::size_t index);
    void WaitForQueue(std::size_t index, int waitedMs);
    void Key(int qtKey);
    void TapButton(int button, double across = 0.5);
    void ChangeColour();
    QPixmap Picture();
    void WaitUntil(std::size_t index, int waitedMs);

    // The browser's part of the tour (demo_tour_browser.cpp): added only
    // when the frame holds the real browser screen.
    void AddBrowserSteps();
    void AddPanelSteps();
    void TapRow(int row, bool twice = false);
    void ClickBrowserButton(int command);
    void ChooseMenuEntry(int command);
    void UpToPlayer();
    int Paced(int milliseconds) const;
    void PanelButton(int command);
    void PanelDeleteRow(int row);

    CMainFrame& m_frame;
    QString m_folder;
    double m_pace;
    std::vector<Step> m_steps;
    QStringList m_saved;
};

} // namespace zelvor
