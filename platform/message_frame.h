#pragma once
// The frame that carries a window message between programs on the host: a
// fixed-size request (message, wParam, lParam; sent or posted) and, for a
// send, a fixed-size answer with the handler's result. Anything that is not
// exactly one well-formed frame is dropped by the receiver.
//
// Request, 20 bytes, little-endian:  "ZLVM" kind(1) 0 0 0 message(4) wParam(4) lParam(4)
// Answer, 8 bytes, little-endian:    "ZLVR" result(4)

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace zelvor {

enum class MessageKind : std::uint8_t { Send = 1, Post = 2 };

struct WindowMessage {
    std::uint32_t message = 0;
    std::uint32_t wParam = 0;
    std::int32_t lParam = 0;
    friend bool operator==(const WindowMessage&, const WindowMessage&) = default;
};

struct MessageRequest {
    MessageKind kind = MessageKind::Post;
    WindowMessage message;
};

constexpr std::size_t kRequestFrameSize = 20;
constexpr std::size_t kAnswerFrameSize = 8;

std::array<std::byte, kRequestFrameSize> EncodeRequest(const MessageRequest& request);
// nullopt unless bytes is exactly one request frame with a known kind.
std::optional<MessageRequest> DecodeRequest(std::span<const std::byte> bytes);

std::array<std::byte, kAnswerFrameSize> EncodeAnswer(std::int32_t result);
std::optional<std::int32_t> DecodeAnswer(std::span<const std::byte> bytes);

} // namespace zelvor
