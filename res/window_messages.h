#pragma once
// Every message number the program sends, receives or posts to itself,
// defined once. The numbers are the device's (WM_USER = 0x400), because the
// shell and the sibling programs use them too.

#include <cstdint>

namespace zelvor {

constexpr std::uint32_t kWmUser = 0x400;

// System messages the frame handles.
constexpr std::uint32_t kMsgCreate = 0x0001;
constexpr std::uint32_t kMsgDestroy = 0x0002;
constexpr std::uint32_t kMsgSize = 0x0005;
constexpr std::uint32_t kMsgActivate = 0x0006;
constexpr std::uint32_t kMsgSetFocus = 0x0007;
constexpr std::uint32_t kMsgClose = 0x0010;
constexpr std::uint32_t kMsgCommand = 0x0111; // wParam: the command number

// Inside the program (posted to the frame or a screen).
constexpr std::uint32_t kMsgGraphNotify = kWmUser + 13;       // engine event waiting
constexpr std::uint32_t kMsgUpdateLibrary = kWmUser + 209;    // run the library update
constexpr std::uint32_t kMsgUpdateFinished = kWmUser + 212;   // library update ended
constexpr std::uint32_t kMsgStartupCheck = kWmUser + 213;     // after the first paint

// From a list control to its parent (the browser). All are posted except
// kMsgListContextMenu and kMsgListEndRename, which are sent and answered.
constexpr std::uint32_t kMsgListClick = kWmUser + 201;        // wParam row; lParam 0, >= 1 confirms
constexpr std::uint32_t kMsgListLeft = kWmUser + 202;         // wParam first selected row or -1
constexpr std::uint32_t kMsgListRight = kWmUser + 203;        // wParam first selected row or -1
constexpr std::uint32_t kMsgListContextMenu = kWmUser + 204;  // as kMsgListContextRequest came
constexpr std::uint32_t kMsgListColumnClick = kWmUser + 205;  // wParam column
constexpr std::uint32_t kMsgListEndRename = kWmUser + 206;    // the rename's result is the answer
constexpr std::uint32_t kMsgListDoubleClick = kWmUser + 207;  // wParam row
// The update dialog to itself: start the update (wParam 1) from its own loop.
constexpr std::uint32_t kMsgStartUpdate = kWmUser + 208;
// To a list control: the context menu is asked for at the screen point in
// lParam (x low 16 bits, y high 16 bits).
constexpr std::uint32_t kMsgListContextRequest = kWmUser + 211;

// Between programs.
constexpr std::uint32_t kMsgRequestClose = kWmUser + 402;     // Pelrin or another asks us to end
constexpr std::uint32_t kMsgStorageCard = kWmUser + 403;      // wParam 0 removed, 1 inserted
constexpr std::uint32_t kMsgShellClose = kWmUser + 405;
constexpr std::uint32_t kMsgBackKey = kWmUser + 406;
constexpr std::uint32_t kMsgShellStatus = kWmUser + 413;      // also sent to DeviceLockOSD
constexpr std::uint32_t kMsgColourChanged = kWmUser + 414;
constexpr std::uint32_t kMsgLanguageChanged = kWmUser + 415;
constexpr std::uint32_t kMsgQueryShellStatus = kWmUser + 420; // sent to Ombrel_Main
constexpr std::uint32_t kMsgShellToPlayer = kWmUser + 421;

// Host only: asks a running instance to come to the front at full size, the
// stand-in for another process calling SetForegroundWindow and SetWindowPos
// on its window.
constexpr std::uint32_t kMsgHostRaise = kWmUser + 0x7F0;

// Window titles and classes that programs are found by.
constexpr char16_t kTitleZelvor[] = u"Zelvor";
constexpr char16_t kTitlePelrin[] = u"Pelrin";
constexpr char16_t kTitleShell[] = u"Ombrel_Main";
constexpr char16_t kTitleDeviceLock[] = u"DeviceLockOSD";
constexpr char16_t kClassNavigator[] = u"Mobile Navigator 6";

} // namespace zelvor
