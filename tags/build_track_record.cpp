#include "tags/build_track_record.h"

#include <cmath>
#include <limits>

#include "tags/adts/read_aac_file.h"
#include "tags/asf/analyse_wma_file.h"
#include "tags/mpeg/analyse_mp3_file.h"

namespace zelvor {
namespace {

struct ReaderTexts {
    std::u16string_view title;
    std::u16string_view album;
    std::u16string_view artist;
    std::u16string_view genre;
    std::uint32_t duration = 0;
    std::int32_t track = 0;
    bool onlyNonEmptyTexts = false;
};

std::unique_ptr<TrackRecord> MakeRecord(std::u16string_view path, const ReaderTexts& r) {
    auto record = std::make_unique<TrackRecord>();
    record->SetField(kFieldPath, path);
    record->SetField(kFieldTitle, r.title.empty() ? FileNameOfPath(path, true) : r.title);
    const std::pair<int, std::u16string_view> texts[] = {
        {kFieldAlbum, r.album}, {kFieldArtist, r.artist}, {kFieldGenre, r.genre}};
    for (const auto& [id, text] : texts) {
        if (!r.onlyNonEmptyTexts || !text.empty())
            record->SetField(id, text);
    }
    record->SetField(kFieldDuration, std::int64_t{r.duration});
    record->SetField(kFieldTrackNumber, std::int64_t{r.track});
    return record;
}

// Seconds as the device stored them: unsigned, the fraction cut off. A
// negative, huge or not-a-number time cannot come from counting frames, but
// must not reach the conversion's undefined cases either.
std::uint32_t WholeSeconds(double seconds) {
    if (!(seconds >= 0))
        return 0;
    if (seconds >= static_cast<double>(std::numeric_limits<std::uint32_t>::max()))
        return std::numeric_limits<std::uint32_t>::max();
    return static_cast<std::uint32_t>(seconds);
}

} // namespace

std::unique_ptr<TrackRecord> BuildTrackRecord(std::u16string_view path, int typeCode) {
    if (typeCode == kAudioMp3) {
        Mp3FileInfo info;
        if (AnalyseMp3File(info, path) == 0)
            return nullptr;
        return MakeRecord(path, {info.title, info.album, info.artist, info.genre,
                                 static_cast<std::uint32_t>(info.duration), info.track, false});
    }
    if (typeCode == kAudioWma) {
        WmaFileInfo info;
        if (AnalyseWmaFile(info, path) == 0)
            return nullptr;
        return MakeRecord(path, {info.title, info.album, info.artist, info.genre,
                                 static_cast<std::uint32_t>(info.duration), info.track, false});
    }
    AacTrackInfo info;
    if (ReadAacFile(path, &info) != kAacOk)
        return nullptr;
    return MakeRecord(path, {info.title, info.album, info.artist, info.genre,
                             WholeSeconds(info.duration), info.track, true});
}

std::unique_ptr<TrackRecord> BuildTrackRecord(std::u16string_view path) {
    AudioFileType type = GetAudioFileType(FileNameOfPath(path));
    if (type == kNotMusic)
        return nullptr;
    return BuildTrackRecord(path, type);
}

} // namespace zelvor
