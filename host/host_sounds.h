#pragma once
// The player's short sounds: the beep of a failed action (MessageBeep) and
// the two wave files of the device ("\Windows\DeleteSong.wav" when songs
// are deleted, "\Windows\MyFavorite.wav" when a favourite is added).
//
// HostSounds plays each one asynchronously through its own small GStreamer
// pipeline, into the sink ZELVOR_AUDIO_SINK names. When that is a WAV
// capture, the file belongs to the playback graph (it holds the tracks as
// they were played) and the sounds go to a silent sink instead; a capture of
// their own is made only when one is asked for explicitly. "fake" never
// opens a sound device.
//
// UI thread only. A sound that ends or fails is torn down on the UI thread
// (the pipeline's bus posts to it); the destructor stops whatever still
// plays.

#include <QObject>
#include <memory>
#include <string_view>
#include <vector>

#include <gst/gst.h>

#include "platform/device_sounds.h"
#include "host/gst_audio_sink.h"

namespace zelvor {

class SoundPlayer {
public:
    virtual ~SoundPlayer() = default;
    // MessageBeep(0xFFFFFFFF): the simple beep.
    virtual void MessageBeep() = 0;
    // PlaySoundW of a wave file named by its device path, asynchronously.
    // False when the file does not exist or cannot be played.
    virtual bool PlaySound(std::u16string_view devicePath) = 0;
};

class HostSounds final : public QObject, public SoundPlayer {
public:
    // At most this many sounds at once; further ones are dropped, as a
    // burst of beeps tells no more than a few.
    static constexpr int kMaxActive = 4;

    // The sink from ZELVOR_AUDIO_SINK (a WAV capture there becomes fake).
    HostSounds();
    // An explicit sink; a WAV sink captures the sounds to a file of their own.
    explicit HostSounds(AudioSinkChoice sink);
    ~HostSounds() override;
    HostSounds(const HostSounds&) = delete;
    HostSounds& operator=(const HostSounds&) = delete;

    void MessageBeep() override;
    bool PlaySound(std::u16string_view devicePath) override;

    // Sounds started and not yet ended.
    int ActiveSounds() const { return static_cast<int>(m_active.size()); }

private:
    // Takes a built pipeline, starts it and keeps it until it ends.
    bool Start(GstElement* pipeline);
    void Finish(GstElement* pipeline);
    static GstBusSyncReply OnBusMessage(GstBus* bus, GstMessage* message, gpointer self);
    GstElement* MakeSink();

    // What a pipeline's bus handler needs; owned by the handler.
    struct SoundContext {
        HostSounds* owner;
        GstElement* pipeline;
    };

    AudioSinkChoice m_sink;
    std::shared_ptr<WavCapture> m_capture;
    std::vector<GstElement*> m_active; // owned pipelines
};

} // namespace zelvor
