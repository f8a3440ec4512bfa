// zelvor-send: talks to a device's programs the way the device shell and
// the sibling programs do.
//
//   zelvor-send [--root DIR] [--post] (--title T | --class C) MSG [WPARAM [LPARAM]]
//       sends (or posts) a message; a send prints the answer.
//   zelvor-send [--root DIR] --listen (--title T | --class C) [--answer N] [--count K]
//               [--exit-on MSG]
//       stands in for a program: prints every message it receives as a JSON line
//       and answers sends with N (default 0).

#include <cstdio>
#include <string>
#include <vector>

#include <QCoreApplication>

#include "platform/device.h"
#include "host/endpoint.h"
#include "platform/text.h"
#include "app/program_cli.h"
#include "tools/zelvor_send/message_argument.h"

namespace {

using namespace zelvor;

struct Options {
    std::filesystem::path root = DefaultDeviceRoot();
    std::optional<EndpointAddress> address;
    bool post = false;
    bool listen = false;
    std::int32_t answer = 0;
    long long count = 0; // 0 = no limit
    std::optional<std::int64_t> exitOn;
    std::vector<std::int64_t> numbers; // MSG WPARAM LPARAM
};

constexpr zelvor::ProgramUsage kProgram{
    "zelvor-send",
    "usage: zelvor-send [--root DIR] [--post] (--title T | --class C) MSG [WPARAM [LPARAM]]\n"
    "       zelvor-send [--root DIR] --listen (--title T | --class C) [--answer N]"
    " [--count K] [--exit-on MSG]\n"
    "       zelvor-send --help | --version\n"
    "Exit status: 0 done, 1 failed (nobody listens, no answer), 2 bad usage.\n"};

std::optional<std::string> ParseOptions(const std::vector<std::string>& args, Options& o) {
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        auto value = [&]() -> std::optional<std::string> {
            if (i + 1 >= args.size())
                return std::nullopt;
            return args[++i];
        };
        auto number = [&]() -> std::optional<std::int64_t> {
            auto v = value();
            return v ? ParseMessageArgument(*v) : std::nullopt;
        };
        if (a == "--post") {
            o.post = true;
        } else if (a == "--listen") {
            o.listen = true;
        } else if (a == "--root" || a == "--title" || a == "--class") {
            auto v = value();
            if (!v)
                return a + " needs a value";
            if (a == "--root")
                o.root = *v;
            else
                o.address = EndpointAddress{a == "--title" ? EndpointKind::Title : EndpointKind::Class,
                                            FromUtf8(*v)};
        } else if (a == "--answer" || a == "--count" || a == "--exit-on") {
            auto n = number();
            if (!n)
                return a + " needs a number";
            if (a == "--answer")
                o.answer = static_cast<std::int32_t>(*n);
            else if (a == "--count")
                o.count = *n;
            else
                o.exitOn = *n;
        } else {
            auto n = ParseMessageArgument(a);
            if (!n)
                return "not a number or option: " + a;
            o.numbers.push_back(*n);
        }
    }
    if (!o.address)
        return "give --title or --class";
    if (o.listen != o.numbers.empty() || o.numbers.size() > 3)
        return o.listen ? "--listen takes no message" : "give MSG [WPARAM [LPARAM]]";
    return std::nullopt;
}

int Listen(QCoreApplication& app, const Options& o) {
    EndpointServer server;
    std::string error;
    if (!server.Listen(o.root, *o.address, &error))
        return Failure(kProgram.name, error);
    long long received = 0;
    server.SetHandler([&](const WindowMessage& m, MessageKind kind) {
        std::printf("{\"message\":%u,\"wParam\":%u,\"lParam\":%d,\"kind\":\"%s\"}\n", m.message,
                    m.wParam, m.lParam, kind == MessageKind::Send ? "send" : "post");
        std::fflush(stdout);
        ++received;
        if ((o.count > 0 && received >= o.count) || (o.exitOn && *o.exitOn == m.message))
            QMetaObject::invokeMethod(&app, [&app] { app.quit(); }, Qt::QueuedConnection);
        return o.answer;
    });
    std::fprintf(stderr, "zelvor-send: listening as %s\n",
                 EndpointFileName(*o.address).c_str());
    return app.exec();
}

} // namespace

int main(int argc, char** argv) {
    if (auto status = AnswerStandardOptions(kProgram, argc, argv))
        return *status;
    QCoreApplication app(argc, argv);
    Options o;
    if (auto why = ParseOptions(std::vector<std::string>(argv + 1, argv + argc), o))
        return UsageError(kProgram, *why);
    if (o.listen)
        return Listen(app, o);
    WindowMessage m;
    m.message = static_cast<std::uint32_t>(o.numbers[0]);
    m.wParam = o.numbers.size() > 1 ? static_cast<std::uint32_t>(o.numbers[1]) : 0;
    m.lParam = o.numbers.size() > 2 ? static_cast<std::int32_t>(o.numbers[2]) : 0;
    if (o.post) {
        if (PostToEndpoint(o.root, *o.address, m))
            return 0;
        return Failure(kProgram.name, "nobody listens as " + EndpointFileName(*o.address));
    }
    auto result = SendToEndpoint(o.root, *o.address, m);
    if (!result)
        return Failure(kProgram.name, "no answer from " + EndpointFileName(*o.address));
    std::printf("%d\n", *result);
    return 0;
}
