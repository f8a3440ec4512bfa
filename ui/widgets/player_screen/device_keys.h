#pragma once
// The host's keys as the device's key codes, which the player screen's
// rules are written in. A keyboard's Return and arrow keys are the device's
// own; the device's hardware buttons (codes above 200) come from the media
// keys a host keyboard or remote has, with two plain keys for the seek
// buttons, which keyboards rarely carry:
//
//   Play, Pause, Play/Pause   -> 237 (play or pause)
//   Stop                      -> 236 (stop); the browser-style Stop key -> 149
//   Previous, Next track      -> 238, 239
//   Volume up, down           -> 241, 242
//   Forward, Rewind, "." ","  -> 234, 235 (seek ten seconds while held)
//
// Any other key maps to 0, which the screen ignores (and leaves to the
// frame: Escape is the back key there).

namespace zelvor {

int DeviceKeyOf(int qtKey);

} // namespace zelvor
