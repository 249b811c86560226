// The product's features that the settings operations ask for.
#pragma once

namespace Features {

constexpr unsigned short voiceMailHotKeys = 160;
constexpr unsigned short hyphenation = 266;
constexpr unsigned short line1Forwarding = 2003;
constexpr unsigned short secondLine = 2007;
constexpr unsigned short cphs = 2040;
constexpr unsigned short line1HotKeys = 2168;
constexpr unsigned short line2Forwarding = 2171;
constexpr unsigned short line2HotKeys = 2189;
constexpr unsigned short lineLock = 2258;

/** A flex bit, which is asked for in another way. */
constexpr unsigned short hearingAidFlexBit = 408;

} // namespace Features
