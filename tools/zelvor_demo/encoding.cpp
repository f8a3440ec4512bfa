#include "tools/zelvor_demo/encoding.h"

#include "platform/text.h"
#include "tools/zelvor_demo/melody.h"

namespace zelvor::demo {
namespace {

bool IsMp3(FileKind kind) {
    return kind == FileKind::Mp3Stereo128 || kind == FileKind::Mp3Stereo320 ||
           kind == FileKind::Mp3Mono22k;
}

bool IsAdts(FileKind kind) {
    return kind == FileKind::Aac || kind == FileKind::AacLong;
}

bool IsAscii(std::u16string_view text) {
    for (char16_t unit : text) {
        if (unit >= 0x80)
            return false;
    }
    return true;
}

bool AllAscii(const TagFields& fields) {
    return IsAscii(fields.title) && IsAscii(fields.artist) && IsAscii(fields.album) &&
           IsAscii(fields.genre) && IsAscii(fields.year);
}

// ffmpeg copies UTF-8 bytes into its ID3v1 tag, which the device would read
// as Windows-1252; such files get a hand-built ID3v1 tag instead.
bool EncoderWritesId3v1(const DemoFile& file) {
    return file.tags == TagStyle::Id3v23V11 && IsMp3(file.kind) && AllAscii(file.fields);
}

bool EncoderWritesTags(const DemoFile& file) {
    if (IsMp3(file.kind))
        return file.tags == TagStyle::Id3v23 || file.tags == TagStyle::Id3v23V11 ||
               file.tags == TagStyle::Id3v24;
    return file.tags == TagStyle::Asf || file.tags == TagStyle::Mp4;
}

// The fixed frame size of each encoder, in samples per channel.
int EncoderFrameSamples(FileKind kind) {
    switch (kind) {
    case FileKind::Mp3Stereo128:
    case FileKind::Mp3Stereo320:
        return 1152; // MPEG-1 Layer III
    case FileKind::Mp3Mono22k:
        return 576; // MPEG-2 Layer III
    case FileKind::Wma:
        return 2048;
    case FileKind::Aac:
    case FileKind::AacLong:
    case FileKind::M4a:
        return 1024;
    default:
        return 0;
    }
}

void AddMetadata(const DemoFile& file, std::vector<std::string>& args) {
    const TagFields& f = file.fields;
    auto add = [&args](const std::string& key, std::u16string_view value) {
        if (!value.empty()) {
            args.push_back("-metadata");
            args.push_back(key + "=" + ToUtf8(value));
        }
    };
    add("title", f.title);
    add("artist", f.artist);
    add("album", f.album);
    add("genre", f.genre);
    if (f.track > 0)
        add("track", FromUtf8(std::to_string(f.track)));
    // ffmpeg's ASF writer keeps "date" under that very name, where no reader
    // looks for a year; WM/Year is passed through as it is.
    add(file.kind == FileKind::Wma ? "WM/Year" : "date", f.year);
}

// The fast coder: the default one searches for minutes over pure tones.
constexpr std::initializer_list<const char*> kAacEncoder{
    "-ar", "44100", "-ac", "2", "-c:a", "aac", "-b:a", "128k", "-aac_coder", "fast"};

void AddCodec(const DemoFile& file, std::vector<std::string>& args) {
    auto add = [&args](std::initializer_list<const char*> items) {
        args.insert(args.end(), items.begin(), items.end());
    };
    switch (file.kind) {
    case FileKind::Mp3Stereo128:
        add({"-ar", "44100", "-ac", "2", "-c:a", "libmp3lame", "-b:a", "128k"});
        break;
    case FileKind::Mp3Stereo320:
        add({"-ar", "44100", "-ac", "2", "-c:a", "libmp3lame", "-b:a", "320k"});
        break;
    case FileKind::Mp3Mono22k: // 22,050 Hz makes lame write MPEG-2 frames
        add({"-ar", "22050", "-ac", "1", "-c:a", "libmp3lame", "-b:a", "64k"});
        break;
    case FileKind::Wma:
        add({"-ar", "44100", "-ac", "2", "-c:a", "wmav2", "-b:a", "128k", "-f", "asf"});
        break;
    case FileKind::Aac:
    case FileKind::AacLong:
        add(kAacEncoder);
        add({"-f", "adts"});
        break;
    case FileKind::M4a:
        add(kAacEncoder);
        add({"-f", "ipod"});
        break;
    case FileKind::CoverJpeg:
        add({"-frames:v", "1", "-c:v", "mjpeg", "-flags:v", "+bitexact", "-update", "1", "-f",
             "image2"});
        break;
    case FileKind::NotesText:
    case FileKind::ProgramFile:
        break;
    }
    if (IsMp3(file.kind)) {
        const char* version = file.tags == TagStyle::Id3v23 || file.tags == TagStyle::Id3v23V11
                                  ? "3"
                              : file.tags == TagStyle::Id3v24 ? "4"
                                                              : "0";
        add({"-id3v2_version", version, "-write_id3v1", EncoderWritesId3v1(file) ? "1" : "0", "-f",
             "mp3"});
    }
}

void Append(Bytes& out, const Bytes& more) {
    out.insert(out.end(), more.begin(), more.end());
}

} // namespace

bool NeedsEncoder(FileKind kind) {
    return kind != FileKind::NotesText && kind != FileKind::ProgramFile;
}

EncodeTarget TargetFor(const DemoFile& file, const std::filesystem::path& output,
                       const std::string& label) {
    EncodeTarget target;
    target.label = label;
    target.output = output;
    if (file.kind == FileKind::CoverJpeg) {
        target.graph = CoverGraph(file.seed, label);
    } else {
        bool mono = file.kind == FileKind::Mp3Mono22k;
        bool aac = IsAdts(file.kind) || file.kind == FileKind::M4a;
        target.graph = MelodyGraph(
            {file.seed, file.seconds, mono ? 22050 : 44100, aac, EncoderFrameSamples(file.kind)},
            label);
        target.options = {"-flags:a", "+bitexact"};
    }
    if (EncoderWritesTags(file))
        AddMetadata(file, target.options);
    AddCodec(file, target.options);
    return target;
}

EncodeTarget ChimeTarget(double firstHz, double secondHz, const std::filesystem::path& output,
                         const std::string& label) {
    return {ChimeGraph(firstHz, secondHz, 22050, label),
            label,
            {"-flags:a", "+bitexact", "-c:a", "pcm_s16le", "-f", "wav"},
            output};
}

std::vector<std::string> EncodeCommand(const std::filesystem::path& ffmpeg,
                                       const std::vector<EncodeTarget>& targets) {
    std::vector<std::string> args{ffmpeg.string(), "-nostdin", "-hide_banner",   "-loglevel",
                                  "error",         "-y",       "-filter_complex"};
    std::string graphs;
    for (const EncodeTarget& target : targets)
        graphs += (graphs.empty() ? "" : ";") + target.graph;
    args.push_back(graphs);
    for (const EncodeTarget& target : targets) {
        // Options before a file name belong to that file alone.
        args.insert(args.end(), {"-map", "[" + target.label + "]", "-map_metadata", "-1", "-fflags",
                                 "+bitexact"});
        args.insert(args.end(), target.options.begin(), target.options.end());
        args.push_back(target.output.string());
    }
    return args;
}

std::optional<Bytes> FinishFile(const DemoFile& file, Bytes encoded) {
    bool hasTags = file.tags != TagStyle::None;
    if (IsMp3(file.kind) && file.tags == TagStyle::Id3v22) {
        auto tag = BuildId3v22Tag(file.fields);
        if (!tag)
            return std::nullopt;
        Append(*tag, encoded);
        return tag;
    }
    if (IsMp3(file.kind) && file.tags == TagStyle::Id3v23V11 && !EncoderWritesId3v1(file)) {
        auto tail = BuildId3v1Tag(file.fields);
        if (!tail)
            return std::nullopt;
        Append(encoded, *tail);
        return encoded;
    }
    if (IsAdts(file.kind) && hasTags) {
        // The AAC reader skips a leading tag only when it is ID3v2.3.0.
        auto head = file.tags == TagStyle::Id3v23V11 ? BuildId3v23Tag(file.fields) : std::nullopt;
        auto tail = BuildId3v1Tag(file.fields);
        if (!head || !tail)
            return std::nullopt;
        Append(*head, encoded);
        Append(*head, *tail);
        return head;
    }
    return encoded;
}

Bytes NotesText() {
    std::string_view text =
        "Demo collection for Zelvor\n"
        "\n"
        "Every tune on this device was synthesized by the demo maker; the artists\n"
        "and albums are invented. This file is not music: the library leaves it out.\n";
    Bytes bytes;
    for (char c : text)
        bytes.push_back(static_cast<std::byte>(c));
    return bytes;
}

} // namespace zelvor::demo
