// The daemon's name on the bus, and its interfaces that this library asks.
#pragma once

namespace Ofono {

constexpr char service[] = "org.ofono";

constexpr char manager[] = "org.ofono.Manager";
constexpr char modemInterface[] = "org.ofono.Modem";
constexpr char simManager[] = "org.ofono.SimManager";
constexpr char callForwarding[] = "org.ofono.CallForwarding";
constexpr char callMeter[] = "org.ofono.CallMeter";
constexpr char callSettings[] = "org.ofono.CallSettings";
constexpr char callVolume[] = "org.ofono.CallVolume";
constexpr char networkOperator[] = "org.ofono.NetworkOperator";
constexpr char networkRegistration[] = "org.ofono.NetworkRegistration";
constexpr char radioSettings[] = "org.ofono.RadioSettings";
constexpr char supplementaryServices[] = "org.ofono.SupplementaryServices";
constexpr char textTelephony[] = "org.ofono.TextTelephony";
constexpr char voiceCall[] = "org.ofono.VoiceCall";
constexpr char voiceCallManager[] = "org.ofono.VoiceCallManager";

} // namespace Ofono
