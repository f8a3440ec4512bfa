#pragma once
// The device's two wave files that the playlist operations play: one when
// songs are deleted from a favourites list, one when songs are added to a
// playlist. Device paths; the host's sound player maps them onto the root.

namespace zelvor {

constexpr char16_t kSoundDeleteSong[] = u"\\Windows\\DeleteSong.wav";
constexpr char16_t kSoundMyFavorite[] = u"\\Windows\\MyFavorite.wav";

} // namespace zelvor
