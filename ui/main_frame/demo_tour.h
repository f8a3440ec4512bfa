#pragma once
// A scripted walk through the player for demonstrations and headless
// checks (`zelvor --tour DIR`): the first start, the library found, play,
// pause, next, seek, random, repeat, volume, a colour change, the turn to
// landscape, then the play list panel from the Menu button (a row deleted,
// the list handed on) and again in portrait (left), each done the way a user or the shell would do it (keys and
// taps on the player pane, the shell's messages to the frame), with a
// picture of the frame saved after each step as DIR/NN-step.png. At the end
// the frame is asked to close, as the shell would.
//
// The frame is borrowed and must outlive the tour (it ends with the frame).
// pace scales every wait (1 = as a person would watch it; tests go faster).

#include <QObject>
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
    };
    void RunStep(std::size_t index);
    void Snapshot(std::size_t index);
    void WaitForQueue(std::size_t index, int waitedMs);
    void Key(int qtKey);
    void TapButton(int button, double across = 0.5);
    void ChangeColour();
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
