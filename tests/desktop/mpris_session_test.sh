#!/usr/bin/env bash
# The player on a private session bus, driven by playerctl as a desktop
# would: play, pause, next, volume, shuffle, loop, seek, metadata after a
# track change, the announcements (PropertiesChanged, Seeked), the card
# folder taken away and brought back, and Quit.
#   dbus-run-session -- mpris_session_test.sh ZELVOR_BINARY
# Exits 77 (skipped) when playerctl, dbus-monitor or ffmpeg is missing.
set -euo pipefail
zelvor=${1:?usage: mpris_session_test.sh ZELVOR_BINARY}
for tool in playerctl dbus-monitor ffmpeg; do
  command -v "$tool" >/dev/null || { echo "skipped: no $tool"; exit 77; }
done

work=$(mktemp -d)
player=
monitor=
cleanup() {
  if [[ -n $player ]]; then kill "$player" 2>/dev/null; wait "$player" 2>/dev/null || true; fi
  if [[ -n $monitor ]]; then kill "$monitor" 2>/dev/null; wait "$monitor" 2>/dev/null || true; fi
  rm -rf "$work"
}
trap cleanup EXIT

card=$work/media/CARD
mkdir -p "$card/Band"
for n in 1 2 3; do
  ffmpeg -loglevel error -f lavfi -i "sine=frequency=$((300 + 100 * n)):duration=20" \
    -metadata title="Song $n" -metadata artist="The Band" -metadata album="First" \
    -metadata genre="Rock" -metadata track=$n -c:a libmp3lame -q:a 9 "$card/Band/song$n.mp3"
done

export QT_QPA_PLATFORM=offscreen ZELVOR_AUDIO_SINK=fake
# The sanitized build's leak check, with the system libraries' exit-time
# caches suppressed as scripts/test does.
repo=$(cd "$(dirname "$0")/../.." && pwd)
export LSAN_OPTIONS=${LSAN_OPTIONS:-suppressions=$repo/scripts/lsan.supp:print_suppressions=0}
export XDG_DATA_HOME=$work/data XDG_RUNTIME_DIR=$work/run
mkdir -m 700 "$XDG_RUNTIME_DIR"
dbus-monitor "type='signal',path='/org/mpris/MediaPlayer2'" >"$work/signals" 2>/dev/null &
monitor=$!
ZELVOR_CARD=$card "$zelvor" >"$work/player.log" 2>&1 &
player=$!

fail() { echo "FAILED: $*"; cat "$work/player.log"; exit 1; }
P() { playerctl -p zelvor "$@" || fail "playerctl $*"; }
# Waits up to 20 s (a loaded machine, a sanitized build) for playerctl to
# print the expected text.
expect() {
  local want=$1; shift
  local got=
  for _ in $(seq 100); do
    got=$(playerctl -p zelvor "$@" 2>/dev/null || true)
    [[ $got == "$want" ]] && return 0
    sleep 0.2
  done
  fail "playerctl $* gave '$got', not '$want'"
}

expect "Song 1" metadata xesam:title # the first start found the card's songs
expect Stopped status
P play;  expect Playing status
expect "The Band" metadata xesam:artist
expect First metadata xesam:album
expect Rock metadata xesam:genre
expect 1 metadata xesam:trackNumber
expect "file://$card/Band/song1.mp3" metadata xesam:url
length=$(P metadata mpris:length)
((length > 19000000 && length < 21000000)) || fail "length $length"

P next;  expect "Song 2" metadata xesam:title
expect "'/org/mpris/MediaPlayer2/zelvor/track/1'" metadata mpris:trackid
P pause; expect Paused status
P play-pause; expect Playing status

P volume 0.5; expect 0.500000 volume
P volume 0;   expect 0.000000 volume   # mute
P volume 0.3; expect 0.300000 volume   # unmuted, three steps
P shuffle On;  expect On shuffle
P shuffle Off; expect Off shuffle
P loop Track;    expect Track loop
P loop Playlist; expect Playlist loop
P loop None;     expect None loop

P position 8
for _ in $(seq 100); do
  pos=$(P position); ((${pos%.*} >= 7 && ${pos%.*} <= 12)) && break; sleep 0.2
done
((${pos%.*} >= 7 && ${pos%.*} <= 12)) || fail "position $pos after seeking to 8"

# The card goes: its playing track is let go. It comes back: the player
# opens it again and plays on.
mv "$card" "$work/away"
expect Stopped status
mv "$work/away" "$card"
expect Playing status

P stop; expect Stopped status
sleep 0.5 # let the monitor see the last signals
grep -q 'member=Seeked' "$work/signals" || fail "no Seeked signal"
grep -q 'string "PlaybackStatus"' "$work/signals" || fail "no PlaybackStatus change announced"
grep -q 'string "Metadata"' "$work/signals" || fail "no Metadata change announced"

playerctl -p zelvor metadata --format '{{xesam:title}}' >/dev/null
dbus-send --session --dest=org.mpris.MediaPlayer2.zelvor --type=method_call \
  /org/mpris/MediaPlayer2 org.mpris.MediaPlayer2.Quit
wait "$player" || fail "the player ended with $?"
player=
echo "mpris session: passed"
