#include "playback/play_queue.h"

#include <algorithm>
#include <vector>

#include "config/settings.h"
#include "platform/debug_print.h"
#include "platform/text.h"
#include "library/library_file.h"
#include "playback/playback_engine.h"
#include "playlists/playlist_names.h"

namespace zelvor {
namespace {

constexpr int kSortAscending = 1;
constexpr std::u16string_view kTextGap = u"    ";

// Where the current entry went in a list edited from the queue's copy: the
// row that is that very entry (kept), or the first row that came after it
// (-1 when none did).
struct FoundEntry {
    int index = -1;
    bool kept = false;
};

FoundEntry FindCurrentIn(const TrackList& list, const TrackRecord* current) {
    FoundEntry found;
    if (!current)
        return found;
    for (int i = 0; i < list.Count(); ++i) {
        const TrackRecord* row = list.TrackAt(i);
        if (row->RunTimeA() == current->RunTimeA() &&
            row->Text(kFieldPath) == current->Text(kFieldPath))
            return {i, true};
        if (found.index < 0 && row->RunTimeA() > current->RunTimeA())
            found.index = i;
    }
    return found;
}

bool FileExists(std::u16string_view path) {
    std::u16string copy(path);
    return !copy.empty() && PathExists(copy);
}

} // namespace

PlayQueue::PlayQueue(PlaybackEngine& engine, PlayerButtons& buttons, PlayerView& view,
                     ShuffleRandom& random)
    : m_engine(engine), m_buttons(buttons), m_view(view), m_randomGenerator(random) {}

PlayQueue::~PlayQueue() {
    // The file always holds the playlist's own order, shuffled or not.
    if (m_random)
        SortByOrderNumber();
    // The file's count is 32 bits, so any queue fits; a save that fails
    // (a full or missing card) keeps the old file. Nobody is left to hear a
    // beep at exit, so the failure goes to the debug output.
    if (m_dirty && SaveTrackList(GetCurrentPlaylistPath(), m_list, 1) != 1)
        DebugPrint(u"queue: the current playlist could not be saved; the old file is kept");
}

void PlayQueue::Restore(bool random, int repeatMode) {
    m_random = random;
    m_repeatMode = static_cast<std::int16_t>(repeatMode);
    m_buttons.ShowRandom(m_random);
    m_buttons.ShowRepeatMode(m_repeatMode);
}

std::u16string PlayQueue::CurrentPath() const {
    const TrackRecord* record = m_list.TrackAt(m_current);
    return record ? std::u16string(record->Text(kFieldPath)) : std::u16string();
}

void PlayQueue::SortByOrderNumber() {
    m_list.SortTracks(kFieldRunTimeA, kSortAscending);
}

void PlayQueue::SortByShuffleKey() {
    m_list.SortTracks(kFieldRunTimeD, kSortAscending);
}

int PlayQueue::IndexOf(const TrackRecord* record) const {
    for (int i = 0; i < m_list.Count(); ++i) {
        if (m_list.TrackAt(i) == record)
            return i;
    }
    return -1;
}

void PlayQueue::MoveEntry(int index, int newIndex) {
    auto records = m_list.RemoveAllTracks(false);
    auto moved = std::move(records[static_cast<size_t>(index)]);
    records.erase(records.begin() + index);
    records.insert(records.begin() + newIndex, std::move(moved));
    for (auto& record : records)
        m_list.AddTrack(std::move(record));
}

int PlayQueue::StepTrack(bool forward, bool automatic) {
    int n = m_list.Count();
    if (m_repeatMode == kRepeatOne && automatic)
        return 1; // the caller plays the same entry again from its start
    int next = forward ? m_current + 1 : m_current - 1;
    int result = 1;
    if (next < 0 || next >= n) {
        if (forward && (!automatic || m_repeatMode != kRepeatOff)) {
            if (automatic && m_random)
                Shuffle(false);
            next = 0;
        } else {
            // Previous at the first entry wraps to the last; the end of the
            // last track with Repeat off stays on it.
            next = n - 1;
        }
        if (automatic)
            result = m_repeatMode != kRepeatOff ? 1 : 0;
    }
    if (m_engine.State() != kPlayStateStopped)
        m_engine.StopCommand();
    SelectEntry(next);
    std::u16string path = CurrentPath();
    if (result == 0)
        return 0;
    m_engine.StopAndRelease(true);
    return m_engine.OpenTrack(path) ? result : -1;
}

void PlayQueue::AdvanceAtEnd() {
    int n = m_list.Count();
    if (n < 1) {
        m_engine.RefreshStepButtons();
        return;
    }
    // Entries that cannot be opened are skipped; n failures in a row stop.
    for (int attempt = 0; attempt < n; ++attempt) {
        int result = StepTrack(true, true);
        if (result > 0) {
            m_engine.PlayCommand(true);
            m_engine.RefreshStepButtons();
            return;
        }
        if (result == 0)
            break;
    }
    m_engine.StopCommand();
    m_engine.RefreshStepButtons();
}

void PlayQueue::Shuffle(bool keepOrder) {
    int n = m_list.Count();
    const TrackRecord* last = n >= 2 ? m_list.TrackAt(n - 1) : nullptr;
    m_randomGenerator.Next(); // the first draw is thrown away
    for (int i = 0; i < n; ++i)
        m_list.TrackAt(i)->SetField(kFieldRunTimeD, std::int64_t{m_randomGenerator.Next() % n});
    // Keys repeat; the sort keeps entries with equal keys in their order.
    SortByShuffleKey();
    if (keepOrder || !last || m_list.TrackAt(0) != last)
        return;
    // The track that played last would play again at once: it plays second.
    std::int64_t key = std::int64_t{m_list.TrackAt(1)->RunTimeD()} + 1;
    m_list.TrackAt(0)->SetField(kFieldRunTimeD, key);
    MoveEntry(0, 1);
}

void PlayQueue::SelectEntry(int index) {
    int n = m_list.Count();
    const TrackRecord* record = m_list.TrackAt(index);
    if (n == 0 || !record) {
        if (n == 0) {
            m_title = u" ";
            m_counter = u" ";
            m_titleScrolls = false;
            m_titleOffset = 0;
            m_engine.RefreshStepButtons();
            m_view.TrackTextsChanged();
        }
        return;
    }
    m_current = index;
    m_title = std::u16string(ShownTitle(*record));
    for (int field : {kFieldArtist, kFieldAlbum}) {
        if (!record->Text(field).empty()) {
            m_title += kTextGap;
            m_title += record->Text(field);
        }
    }
    m_counter = FromUtf8(std::to_string(std::uint64_t{record->RunTimeA()} + 1) + "/" +
                         std::to_string(n));
    m_titleOffset = 0;
    m_titleScrolls = m_view.MeasureTitleText(m_title) > m_view.TitleAreaWidth();
    if (m_titleScrolls)
        m_title.append(kTitleScrollGap, u' ');
    m_view.TrackTextsChanged();
}

void PlayQueue::ToggleRandom() {
    m_random = !m_random;
    m_buttons.ShowRandom(m_random);
    m_view.InvalidateAll(false);
    std::int32_t state = m_engine.State();
    const TrackRecord* playing = nullptr;
    if (state == kPlayStatePlaying || state == kPlayStatePaused)
        playing = m_list.TrackAt(m_current);

    int n = m_list.Count();
    if (n > 1) {
        m_view.SetWaitCursor(true);
        if (m_random)
            Shuffle(true);
        else
            SortByOrderNumber();
        m_view.SetWaitCursor(false);
    }
    if (n == 0)
        return;
    if (playing) {
        // The playing track keeps playing: it heads a new shuffled order.
        int index = IndexOf(playing);
        if (m_random && index >= 1) {
            m_list.TrackAt(index)->SetField(kFieldRunTimeD, std::int64_t{0});
            MoveEntry(index, 0);
            SelectEntry(0);
        } else if (index >= 0) {
            SelectEntry(index);
        }
        return;
    }
    if (state != kPlayStateStopped)
        m_engine.StopCommand();
    m_engine.StopAndRelease(false);
    SelectEntry(0);
    m_engine.OpenTrack(CurrentPath());
    if (state != kPlayStateStopped)
        m_engine.PlayCommand(true);
}

void PlayQueue::CycleRepeat() {
    m_repeatMode = static_cast<std::int16_t>((m_repeatMode + 1) % 3);
    m_buttons.ShowRepeatMode(m_repeatMode);
    m_view.InvalidateAll(false);
}

void PlayQueue::LoadQueue() {
    std::u16string path = GetCurrentPlaylistPath();
    if (!FileExists(path))
        return;
    int loaded = LoadTrackList(path, m_list);
    int before = m_list.Count();
    for (int i = before - 1; i >= 0; --i) {
        if (!FileExists(m_list.TrackAt(i)->Text(kFieldPath)))
            m_list.RemoveTrack(i);
    }
    if (m_list.Count() != before)
        m_dirty = true;
    for (int i = 0; i < m_list.Count(); ++i)
        m_list.TrackAt(i)->SetField(kFieldRunTimeA, std::int64_t{i});

    // A file that cannot be read leaves the queue empty, as a missing one does.
    if (loaded && m_list.Count() > 0) {
        if (m_random)
            Shuffle(true);
        else
            SortByOrderNumber();
        SelectEntry(0);
    }
    if (m_list.Count() > 0) {
        m_engine.OpenTrack(CurrentPath());
        m_engine.SetPlayState(kPlayStateStopped);
    }
}

void PlayQueue::FillFrom(const TrackList& source) {
    m_dirty = true;
    m_list.RemoveAllTracks(true);
    m_current = -1;
    for (int i = 0; i < source.Count(); ++i) {
        auto copy = source.TrackAt(i)->Clone();
        copy->SetField(kFieldRunTimeA, std::int64_t{i});
        m_list.AddTrack(std::move(copy), i);
    }
}

void PlayQueue::ReplaceQueue(const TrackList& source) {
    FillFrom(source);
    if (m_random)
        Shuffle(true);
    m_engine.StopAndRelease(false);
    SelectEntry(0);
    if (m_list.Count() > 0)
        m_engine.OpenTrack(CurrentPath());
    m_buttons.Set(kButtonPlay, source.Count() > 0 ? kDisplayNormal : kDisplayHidden);
    m_engine.RefreshStepButtons();
}

void PlayQueue::CopyEntries(TrackList& into) const {
    std::vector<const TrackRecord*> records;
    for (const auto& record : m_list)
        records.push_back(record.get());
    std::stable_sort(records.begin(), records.end(), [](const auto* a, const auto* b) {
        return a->RunTimeA() < b->RunTimeA();
    });
    for (const TrackRecord* record : records)
        into.AddTrack(record->Clone());
}

void PlayQueue::ReplaceQueueKeepingCurrent(const TrackList& source) {
    const TrackRecord* current = m_list.TrackAt(m_current);
    const FoundEntry found = FindCurrentIn(source, current);
    if (found.kept) {
        FillFrom(source);
        if (m_random)
            Shuffle(true);
        PutFirstAndSelect(static_cast<std::uint32_t>(found.index));
        m_engine.RefreshStepButtons();
    } else {
        const bool wasPlaying = m_engine.State() == kPlayStatePlaying;
        ReplaceQueue(source); // the first entry of the play order, loaded
        if (!m_random && found.index > 0) {
            m_engine.StopAndRelease(false);
            SelectEntry(found.index);
            m_engine.OpenTrack(CurrentPath());
            m_engine.RefreshStepButtons();
        }
        if (wasPlaying && m_list.Count() > 0)
            m_engine.PlayCommand(true);
    }
    SaveNow();
}

void PlayQueue::PutFirstAndSelect(std::uint32_t orderNumber) {
    int index = 0;
    while (index < m_list.Count() && m_list.TrackAt(index)->RunTimeA() != orderNumber)
        ++index;
    if (m_random && index >= 1 && index < m_list.Count()) {
        m_list.TrackAt(index)->SetField(kFieldRunTimeD, std::int64_t{0});
        MoveEntry(index, 0);
        index = 0;
    }
    SelectEntry(index);
}

void PlayQueue::SaveNow() {
    TrackList ordered;
    CopyEntries(ordered);
    if (SaveTrackList(GetCurrentPlaylistPath(), ordered, 1))
        m_dirty = false;
}

void PlayQueue::NextCommand() {
    StepCommand(true);
}

void PlayQueue::PreviousCommand() {
    StepCommand(false);
}

void PlayQueue::StepCommand(bool forward) {
    int n = m_list.Count();
    if (n == 1) {
        m_view.Beep(); // a single entry is never stepped
        return;
    }
    bool wasActive = m_engine.State() != kPlayStateStopped;
    bool waiting = false;
    int attempts = 0;
    while (attempts < n) {
        int result = StepTrack(forward, false);
        ++attempts;
        if (result == 0)
            wasActive = false;
        if (result >= 0)
            break;
        if (!waiting) {
            m_view.SetWaitCursor(true);
            waiting = true;
        }
    }
    if (waiting)
        m_view.SetWaitCursor(false);
    if (wasActive)
        m_engine.PlayCommand(true);
    else if (attempts == n)
        m_view.Beep(); // also after a last attempt that worked, and for an empty queue
}

} // namespace zelvor
