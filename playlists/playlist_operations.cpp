#include "playlists/playlist_operations.h"

#include "config/local_text.h"
#include "config/settings.h"
#include "platform/device.h"
#include "platform/device_sounds.h"
#include "platform/text.h"
#include "playlists/playlist_file.h"
#include "playlists/playlist_names.h"
#include "res/string_table.h"

#include <algorithm>

namespace zelvor {
namespace {

constexpr std::u16string_view kPlaylistExtension = u".mpl";

// The playlist texts are the program's own English ones, never translated:
// they name files, which the shell's translations know nothing of.
std::u16string BuiltIn(std::uint16_t id) {
    const char16_t* text = LoadBuiltInText(id);
    return text ? std::u16string(text) : std::u16string();
}

std::u16string PathInPlaylistFolder(std::u16string_view name) {
    return JoinDevicePath(GetPlaylistFolder(),
                          std::u16string(name) + std::u16string(kPlaylistExtension));
}

bool Exists(std::u16string_view path) {
    std::u16string copy(path);
    return PathExists(copy);
}

// A new playlist may be the first file of a folder that was never made.
void MakePlaylistFolder() {
    std::u16string folder = GetPlaylistFolder();
    if (!PathExists(folder))
        CurrentDevice().FileSystem().CreateDirectory(folder);
}

bool SavePaths(std::u16string_view path, PlaylistEntryList& list,
               std::span<const std::u16string> songPaths) {
    for (const std::u16string& song : songPaths)
        list.Insert(std::make_unique<PlaylistEntry>(song));
    MakePlaylistFolder();
    return SavePlaylist(path, list) == 1;
}

// A name becomes one file in the playlist folder: no folder part, not empty.
bool UsableName(std::u16string_view name) {
    return !name.empty() && name.find_first_of(u"\\/") == std::u16string_view::npos;
}

} // namespace

std::vector<std::u16string> SongPaths(const PlaylistEntryList& rows, std::span<const int> selected,
                                      const TrackList& library) {
    std::vector<std::u16string> paths;
    paths.reserve(selected.size());
    for (int index : selected) {
        const PlaylistEntry* row = rows.At(index);
        if (index < 0 || !row)
            continue;
        if (const TrackRecord* record = library.TrackAt(row->LibraryIndex()))
            paths.emplace_back(record->Text(kFieldPath));
        else if (row->LibraryIndex() < 0 && !row->Text(1).empty())
            paths.emplace_back(row->Text(1));
    }
    return paths;
}

bool FinishRename(std::vector<PlaylistRow>& rows, int row, std::u16string_view newName, bool report,
                  UserFeedback& feedback) {
    const bool known = row >= 0 && row < static_cast<int>(rows.size());
    const std::u16string newPath = PathInPlaylistFolder(newName);
    if (known && UsableName(newName) && Exists(newPath)) {
        if (report)
            feedback.MessageBox(BuiltIn(kTextRenameFailed) + u"\n" +
                                    FormatText(BuiltIn(kTextPlaylistExists), newName),
                                kMbOk);
        return false;
    }
    if (!known || !UsableName(newName) ||
        !CurrentDevice().FileSystem().MoveFile(rows[static_cast<size_t>(row)].path, newPath)) {
        if (report)
            feedback.MessageBox(BuiltIn(kTextRenameFailed), kMbOk);
        return false;
    }
    std::u16string found = newPath;
    if (PathExists(found)) {
        rows[static_cast<size_t>(row)].name = std::u16string(newName);
        rows[static_cast<size_t>(row)].path = newPath;
    }
    return true;
}

RowsAfterDeletion DeletePlaylist(std::vector<PlaylistRow>& rows, int row, UserFeedback& feedback) {
    if (row < 0 || row >= static_cast<int>(rows.size())) {
        feedback.Beep();
        return {};
    }
    const PlaylistRow doomed = rows[static_cast<size_t>(row)];
    if (feedback.MessageBox(FormatText(BuiltIn(kTextDeletePlaylistQuestion), doomed.name),
                            kMbYesNo) != kIdYes)
        return {};
    for (PlaylistRow& other : rows) {
        if (other.number >= doomed.number)
            --other.number;
    }
    rows.erase(rows.begin() + row);
    CurrentDevice().FileSystem().DeleteFile(doomed.path);
    const int count = static_cast<int>(rows.size());
    return {true, count == 0 ? -1 : std::min(row, count - 1)};
}

RowsAfterDeletion DeleteSongsFromPlaylist(std::u16string_view path, PlaylistEntryList& shownRows,
                                          std::span<const int> selected, UserFeedback& feedback) {
    std::vector<int> rows(selected.begin(), selected.end());
    std::erase_if(rows, [&](int r) { return r < 0 || r >= shownRows.Count(); });
    PlaylistEntryList file;
    if (rows.empty() || LoadPlaylist(path, file) != 1) {
        feedback.Beep();
        return {};
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    std::vector<int> filePositions;
    for (int r : rows)
        filePositions.push_back(shownRows.At(r)->ValueC());
    std::sort(filePositions.begin(), filePositions.end(), std::greater<>());
    for (int position : filePositions) {
        if (PlaylistEntry* entry = position >= 0 ? file.At(position) : nullptr)
            file.Remove(entry);
    }
    // A file that cannot be saved keeps its songs, and so do the rows.
    if (SavePlaylist(path, file) != 1) {
        feedback.Beep();
        return {};
    }
    for (auto it = rows.rbegin(); it != rows.rend(); ++it)
        shownRows.Remove(shownRows.At(*it));
    // The rows left keep pointing at their entries, which moved up.
    for (const auto& row : shownRows) {
        const auto below = std::count_if(filePositions.begin(), filePositions.end(),
                                         [&](int p) { return p < row->ValueC(); });
        row->SetValueC(row->ValueC() - static_cast<int>(below));
    }
    feedback.PlaySound(kSoundDeleteSong);
    const int count = shownRows.Count();
    const int deleted = static_cast<int>(rows.size());
    return {true, count == 0 ? -1 : std::min(count - 1, rows.back() - deleted + 1)};
}

std::u16string AddToNewPlaylist(std::span<const std::u16string> songPaths, UserFeedback& feedback) {
    if (songPaths.empty()) {
        feedback.Beep();
        return {};
    }
    const std::u16string fileName = MakeNewPlaylistName();
    const std::u16string path = JoinDevicePath(GetPlaylistFolder(), fileName);
    PlaylistEntryList list;
    if (!SavePaths(path, list, songPaths)) {
        feedback.Beep();
        return {};
    }
    const std::u16string_view name = FileNameOfPath(fileName, true);
    feedback.MessageBox(FormatText(BuiltIn(kTextAddTo), name), kMbOk);
    return path;
}

bool AddToPlaylistFile(std::u16string_view path, std::span<const std::u16string> songPaths,
                       UserFeedback& feedback) {
    PlaylistEntryList list;
    if (songPaths.empty() || (Exists(path) && LoadPlaylist(path, list) != 1)) {
        feedback.Beep();
        return false;
    }
    // A list grown past what a file can hold is refused; the file stays.
    if (!SavePaths(path, list, songPaths)) {
        feedback.Beep();
        return false;
    }
    feedback.PlaySound(kSoundMyFavorite);
    return true;
}

} // namespace zelvor
