#include "platform/message_frame.h"

#include <cstring>

namespace zelvor {
namespace {

void Put32(std::byte* at, std::uint32_t value) {
    for (int i = 0; i < 4; ++i)
        at[i] = static_cast<std::byte>((value >> (8 * i)) & 0xFF);
}

std::uint32_t Get32(const std::byte* at) {
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i)
        value |= std::to_integer<std::uint32_t>(at[i]) << (8 * i);
    return value;
}

bool HasMagic(std::span<const std::byte> bytes, const char* magic) {
    return std::memcmp(bytes.data(), magic, 4) == 0;
}

} // namespace

std::array<std::byte, kRequestFrameSize> EncodeRequest(const MessageRequest& request) {
    std::array<std::byte, kRequestFrameSize> frame{};
    std::memcpy(frame.data(), "ZLVM", 4);
    frame[4] = static_cast<std::byte>(request.kind);
    Put32(&frame[8], request.message.message);
    Put32(&frame[12], request.message.wParam);
    Put32(&frame[16], static_cast<std::uint32_t>(request.message.lParam));
    return frame;
}

std::optional<MessageRequest> DecodeRequest(std::span<const std::byte> bytes) {
    if (bytes.size() != kRequestFrameSize || !HasMagic(bytes, "ZLVM"))
        return std::nullopt;
    const auto kind = std::to_integer<std::uint8_t>(bytes[4]);
    if (kind != static_cast<std::uint8_t>(MessageKind::Send) &&
        kind != static_cast<std::uint8_t>(MessageKind::Post))
        return std::nullopt;
    if (bytes[5] != std::byte{0} || bytes[6] != std::byte{0} || bytes[7] != std::byte{0})
        return std::nullopt;
    MessageRequest request;
    request.kind = static_cast<MessageKind>(kind);
    request.message.message = Get32(&bytes[8]);
    request.message.wParam = Get32(&bytes[12]);
    request.message.lParam = static_cast<std::int32_t>(Get32(&bytes[16]));
    return request;
}

std::array<std::byte, kAnswerFrameSize> EncodeAnswer(std::int32_t result) {
    std::array<std::byte, kAnswerFrameSize> frame{};
    std::memcpy(frame.data(), "ZLVR", 4);
    Put32(&frame[4], static_cast<std::uint32_t>(result));
    return frame;
}

std::optional<std::int32_t> DecodeAnswer(std::span<const std::byte> bytes) {
    if (bytes.size() != kAnswerFrameSize || !HasMagic(bytes, "ZLVR"))
        return std::nullopt;
    return static_cast<std::int32_t>(Get32(&bytes[4]));
}

} // namespace zelvor
