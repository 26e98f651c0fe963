#include "rbn/socket_events.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "base/text.h"
#include "core/event_log.h"

namespace brelwin {
namespace {

// Servers of old and of today ask for the callsign in these words, without a line end.
constexpr std::array<std::string_view, 2> Prompts = {"Please enter your callsign: ",
                                                     "Please enter your call: "};

// A server that talks without ever asking fills no more than this.
constexpr std::size_t MostSearched = std::size_t{64} * 1024;

std::string EventName(std::string_view event, std::int32_t index) {
  return "WinsockArray_" + std::string(event) + "(" + std::to_string(index) + ")";
}

std::string StateText(RBNConnection& connection, std::int32_t index) {
  return " State=" + std::to_string(static_cast<int>(connection.Sockets[index].State()));
}

void TakeLines(RBNConnection& connection, std::int32_t index, std::string_view bytes) {
  if (!connection.Lines.HasLines()) connection.HeardSince = connection.ConnectedAt;
  const auto intake = connection.Lines.Add(bytes);
  for (auto i = intake.DroppedLines; i > 0; --i)
    LogEvent(connection.World, EventName("DataArrival", index) + " - Line of more than 64 KB dropped");
  if (intake.WholeLines == 0) return;
  if (connection.Listener) connection.Listener(connection.Lines.Newest(intake.Bytes));
  connection.Status.Lines += intake.WholeLines;
  connection.Status.LastLine = connection.World.Time.LocalNow();
}

void AnswerPrompt(RBNConnection& connection, std::int32_t index, std::size_t endOfPrompt) {
  auto& socket = connection.Sockets[index];
  if (socket.State() != SocketState::Connected) return;
  LogEvent(connection.World,
           EventName("DataArrival", index) + " - Sending callsign " + connection.RBNCallsign);
  connection.PromptAnswered = true;
  connection.Status.Lines = 0;
  connection.Status.LastLine.reset();
  const auto received = std::exchange(connection.ReceiveBuffer, {});
  TakeLines(connection, index, std::string_view(received).substr(endOfPrompt));
  socket.Send(connection.RBNCallsign + std::string(LineEnd));
}

void SearchForPrompt(RBNConnection& connection, std::int32_t index, std::string_view bytes) {
  auto& buffer = connection.ReceiveBuffer;
  buffer.append(bytes);
  if (const auto end = EndOfPrompt(buffer)) {
    AnswerPrompt(connection, index, *end);
  } else if (buffer.size() > MostSearched) {
    buffer.erase(0, buffer.size() - MostSearched);
  }
}

void TakeArrived(RBNConnection& connection, std::int32_t index) {
  const auto bytes = connection.Sockets[index].GetData();
  connection.LastArrival = connection.World.Time.Now();
  if (connection.PromptAnswered) {
    connection.ArrivedSinceCheck = true;
    TakeLines(connection, index, bytes);
  } else {
    SearchForPrompt(connection, index, bytes);
  }
}

// What the socket still holds of a connection that has ended is little, and goes with the socket.
void TakeRemainder(RBNConnection& connection, std::int32_t index) {
  if (std::exchange(connection.HeldBack, false)) TakeArrived(connection, index);
}

}  // namespace

void ListenToSocket(RBNConnection& connection) {
  const auto index = connection.Index;
  auto& events = connection.Socket().Events;
  events.Connect = [&connection, index] { WinsockArray_Connect(connection, index); };
  events.DataArrival = [&connection, index](std::size_t) { WinsockArray_DataArrival(connection, index); };
  events.Close = [&connection, index] { WinsockArray_Close(connection, index); };
  events.Error = [&connection, index](const SocketError& error) {
    WinsockArray_Error(connection, index, error);
  };
  events.SendComplete = [&connection, index] { WinsockArray_SendComplete(connection, index); };
  events.SendProgress = [&connection, index](std::size_t sent, std::size_t remaining) {
    WinsockArray_SendProgress(connection, index, sent, remaining);
  };
}

void WinsockArray_Connect(RBNConnection& connection, std::int32_t index) {
  LogEvent(connection.World, EventName("Connect", index) + StateText(connection, index));
  connection.Connected = true;
  connection.ConnectedAt = connection.World.Time.Now();
  connection.LastArrival = connection.ConnectedAt;
  connection.Controls.lblNoConnectionToRBN.Visible = false;
  connection.Controls.cmdReloadSpotList.Enabled = true;
  SetStage(connection, StreamStage::AwaitingLogin);
}

void WinsockArray_Close(RBNConnection& connection, std::int32_t index) {
  LogEvent(connection.World, EventName("Close", index) + StateText(connection, index));
  TakeRemainder(connection, index);
  ShowNoConnection(connection, "closed by the server");
}

void WinsockArray_Error(RBNConnection& connection, std::int32_t index, const SocketError& error) {
  LogEvent(connection.World, EventName("Error", index) + " " + std::to_string(error.Number) + " " +
                                 error.Description + " " + error.Source + StateText(connection, index));
  TakeRemainder(connection, index);
  connection.Sockets[index].Close();
  ShowNoConnection(connection, error.Description);
}

void WinsockArray_SendComplete(RBNConnection& connection, std::int32_t index) {
  LogEvent(connection.World, EventName("SendComplete", index) + StateText(connection, index));
  connection.CallsignSent = true;
  connection.LastRawRBNSpotTime = connection.World.Time.Now();
  SetStage(connection, StreamStage::Receiving);
}

void WinsockArray_SendProgress(RBNConnection& connection, std::int32_t index, std::size_t bytesSent,
                               std::size_t bytesRemaining) {
  LogEvent(connection.World, EventName("SendProgress", index) + " BytesSent=" + std::to_string(bytesSent) +
                                 " BytesRemaining=" + std::to_string(bytesRemaining) +
                                 StateText(connection, index));
}

void WinsockArray_DataArrival(RBNConnection& connection, std::int32_t index) {
  connection.HeldBack = connection.PromptAnswered && connection.Lines.IsFull();
  if (!connection.HeldBack) TakeArrived(connection, index);
}

void TakeHeldBack(RBNConnection& connection) {
  if (connection.HeldBack) WinsockArray_DataArrival(connection, connection.Index);
}

std::optional<std::size_t> EndOfPrompt(std::string_view text) {
  std::optional<std::size_t> first;
  for (const auto prompt : Prompts) {
    const auto found = text.find(prompt);
    if (found != std::string_view::npos) first = std::min(first.value_or(text.size()), found + prompt.size());
  }
  return first;
}

}  // namespace brelwin
