#include "playback/player.h"

#include "playback/buffering_time.h"
#include "playback/player_settings.h"
#include "tags/id3v2/strip_id3v2_tag.h"

namespace zelvor {

Player::Player(MediaGraphFactory& factory, PlayerView& view, ShuffleRandom& random)
    : m_buttons(view),
      m_volume(m_slots, view),
      m_engine(factory, m_slots, m_volume, m_buttons, view),
      m_position(m_slots, m_engine, view),
      m_queue(m_engine, m_buttons, view, random) {
    m_engine.Connect(m_queue, m_position);
    // An MP3 whose decoder cannot be built loses its ID3v2 tag and is tried
    // once more: some decoders choke on tags that other programs wrote.
    m_engine.SetTagStripper([](std::u16string_view path) {
        Id3v2Tag tag;
        return StripId3v2Tag(tag, path) == 1;
    });
    PlayerSettings settings = LoadPlayerSettings();
    m_volume.Restore(settings.volumeIndex, settings.muted);
    m_queue.Restore(settings.random, settings.repeatMode);
    FixBufferingTime();
    m_engine.SetPlayState(kPlayStateEmpty);
}

Player::~Player() {
    m_engine.StopPositionTimer();
    m_engine.StopAndRelease(true);
    SavePlayerSettings({m_queue.Random(), m_queue.RepeatMode(), m_volume.Muted(), m_volume.Index()});
    // The queue writes its file as it goes, after this body.
}

} // namespace zelvor
