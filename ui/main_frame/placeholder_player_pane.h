#pragma once
// A stand-in for the player screen, kept only until the real one is built
// into the program: it shows the skin's player background and tells the
// frame, after its first paint, to check the library, so the program runs
// and the frame's work can be seen. It plays nothing.

#include <QImage>
#include <QWidget>

#include "ui/player_pane.h"

namespace zelvor {

class PlaceholderPlayerPane final : public QWidget, public PlayerPane {
public:
    PlaceholderPlayerPane(QWidget* parent, FrameMessages& frame);

    QWidget* Widget() override { return this; }
    void RedoLayout() override;
    void RedoTextLayout() override {}
    void SetShellStatus(std::int32_t) override {}
    void OnShellPlayerMessage() override {}
    void ReleaseCurrentTrack() override {}
    void Resume() override {}
    int QueueCount() override { return m_queueCount; }
    void ReplaceQueue(const TrackList& list) override;
    void CancelHoldTimers() override {}

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    FrameMessages& m_frame;
    QImage m_background;
    int m_queueCount = 0;
    bool m_painted = false;
};

} // namespace zelvor
