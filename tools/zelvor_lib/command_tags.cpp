// zelvor-lib tags: the TrackRecord each file gives, one JSON object a line;
// with --raw also what the file's reader itself found.
//
// FILE arguments are host paths (relative to the working folder) unless a
// device is named with --root, --card or --flash: then they are device paths
// ("/" accepted for "\"). Host paths are read through a device whose root is
// the host's "/", so they take exactly the path the library scan takes.

#include <cstdio>
#include <filesystem>

#include "platform/text.h"
#include "tags/adts/read_aac_file.h"
#include "tags/asf/analyse_wma_file.h"
#include "tags/build_track_record.h"
#include "tags/mpeg/analyse_mp3_file.h"
#include "tools/zelvor_lib/command_line.h"
#include "tools/zelvor_lib/commands.h"
#include "tools/zelvor_lib/json_line.h"

namespace zelvor {
namespace {

JsonLine RawMp3(const Mp3FileInfo& info) {
    JsonLine mp3;
    mp3.Add("flags", info.flags)
        .Add("version", info.version)
        .Add("layer", info.layer)
        .Add("protection", info.protection)
        .Add("bitrate", info.bitRate)
        .Add("sample_rate", info.sampleRate)
        .Add("channel_mode", info.channelMode)
        .Add("emphasis", info.emphasis)
        .Add("copyright", info.copyright)
        .Add("original", info.original)
        .Add("frame_length", info.layout.frameLength)
        .Add("frames", info.layout.frameCount)
        .Add("header_offset", info.layout.headerOffset)
        .Add("file_size", info.layout.fileSize)
        .Add("duration", info.duration)
        .Add("genre_index", info.genreIndex)
        .Add("comment", info.comment)
        .Add("year", info.year);
    return mp3;
}

JsonLine RawId3v2(const Id3v2Tag& tag) {
    JsonLine id3;
    id3.Add("present", tag.present)
        .Add("error", tag.error)
        .Add("major", int{tag.majorVersion})
        .Add("tag_length", tag.tagLength)
        .Add("title", DecodeId3Text(tag.GetTitle()))
        .Add("artist", DecodeId3Text(tag.GetArtist()))
        .Add("album", DecodeId3Text(tag.GetAlbum()))
        .Add("genre_index", tag.genreIndex)
        .Add("genre_text", DecodeId3Text(tag.genreText))
        .Add("track", tag.track)
        .Add("track_total", tag.trackTotal);
    return id3;
}

void AddRaw(JsonLine& line, std::u16string_view path, AudioFileType type) {
    if (type == kAudioMp3) {
        Mp3FileInfo info;
        Id3v2Tag tag;
        AnalyseMp3File(info, path);
        ReadId3v2(tag, path); // the merge may not have run; read it for the record
        line.AddObject("mp3", RawMp3(info)).AddObject("id3v2", RawId3v2(tag));
    } else if (type == kAudioWma) {
        WmaFileInfo info;
        AnalyseWmaFile(info, path);
        JsonLine wma;
        wma.Add("non_audio_codec", info.nonAudioCodec)
            .Add("duration", info.duration)
            .Add("year", info.year)
            .Add("comment", info.comment);
        line.AddObject("wma", wma);
    } else if (type == kAudioAac) {
        AacTrackInfo info;
        AacResult result = ReadAacFile(path, &info);
        JsonLine aac;
        aac.Add("result", std::uint64_t{result})
            .Add("duration_seconds", info.duration)
            .Add("frames", info.stream.Frames())
            .Add("sample_rate", info.stream.sampleRate)
            .Add("profile", info.stream.profile)
            .Add("channels", info.stream.channelConfiguration);
        line.AddObject("aac", aac);
    }
}

std::string DescribeFile(const std::string& argument, std::u16string_view path, bool raw) {
    AudioFileType type = GetAudioFileType(DeviceNameOf(path));
    auto record = BuildTrackRecord(path);
    JsonLine line;
    line.Add("file", argument).Add("type", static_cast<int>(type)).Add("ok", record != nullptr);
    if (record) {
        line.Add("title", record->Text(kFieldTitle))
            .Add("album", record->Text(kFieldAlbum))
            .Add("artist", record->Text(kFieldArtist))
            .Add("genre", record->Text(kFieldGenre))
            .Add("duration", record->Duration())
            .Add("track", unsigned{record->TrackNumber()});
    }
    if (raw)
        AddRaw(line, path, type);
    return line.Str() + "\n";
}

} // namespace

std::unique_ptr<Device> OpenDeviceForFiles(const CommandLine& cmd, bool& hostPaths,
                                           std::string* error) {
    hostPaths = !cmd.Has("--root") && !cmd.Has("--card") && !cmd.Has("--flash");
    if (!hostPaths)
        return cmd.OpenDevice(error);
    DeviceConfig config;
    config.root = "/";
    auto device = Device::Open(config, error);
    if (device)
        SetCurrentDevice(device.get());
    return device;
}

std::u16string DevicePathOfFile(const std::string& argument, bool hostPath) {
    if (!hostPath)
        return DevicePathArgument(argument);
    std::error_code ec;
    std::filesystem::path absolute = std::filesystem::absolute(argument, ec);
    return DevicePathArgument(ec ? argument : absolute.string());
}

int RunTagsCommand(const Arguments& args) {
    CommandLine cmd(args, CommandLine::DeviceOptions(), {"--raw"});
    if (!cmd.Ok() || cmd.Positional().empty()) {
        std::fprintf(stderr,
                     "zelvor-lib tags: %s\nusage: zelvor-lib tags [--raw] [--root DIR] FILE...\n",
                     cmd.Ok() ? "give at least one file" : cmd.Error().c_str());
        return 2;
    }
    bool hostPaths = true;
    std::string error;
    auto device = OpenDeviceForFiles(cmd, hostPaths, &error);
    if (!device) {
        std::fprintf(stderr, "zelvor-lib tags: %s\n", error.c_str());
        return 1;
    }
    for (const std::string& argument : cmd.Positional()) {
        std::string line =
            DescribeFile(argument, DevicePathOfFile(argument, hostPaths), cmd.Has("--raw"));
        std::fwrite(line.data(), 1, line.size(), stdout);
    }
    SetCurrentDevice(nullptr);
    return 0;
}

} // namespace zelvor
