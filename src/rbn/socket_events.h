// What happens on the sockets of the Reverse Beacon Network. Each event writes its line to the event log.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "rbn/connection.h"

namespace brelwin {

// Connects the events of the socket in use to the procedures below.
void ListenToSocket(RBNConnection& connection);

void WinsockArray_Connect(RBNConnection& connection, std::int32_t index);
void WinsockArray_Close(RBNConnection& connection, std::int32_t index);
void WinsockArray_Error(RBNConnection& connection, std::int32_t index, const SocketError& error);
void WinsockArray_SendComplete(RBNConnection& connection, std::int32_t index);
void WinsockArray_SendProgress(RBNConnection& connection, std::int32_t index, std::size_t bytesSent,
                               std::size_t bytesRemaining);

// Takes what has arrived. Until the server's prompt is found and answered with the callsign it is searched
// for the prompt; what follows the prompt waits for the check cycle as whole lines. While too many of them
// wait, it is left where it is, and the sender has to wait as well.
void WinsockArray_DataArrival(RBNConnection& connection, std::int32_t index);

// Takes what was left, once a check has taken the lines.
void TakeHeldBack(RBNConnection& connection);

// The position behind the first login prompt in the text; empty when there is none.
std::optional<std::size_t> EndOfPrompt(std::string_view text);

}  // namespace brelwin
