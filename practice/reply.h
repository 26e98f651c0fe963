// What the network sends back for a request, and how.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace practice {

inline constexpr std::string_view HtmlType = "text/html; charset=utf-8";

struct Reply {
  int Status = 200;  // 0: the connection ends without an answer
  std::string Type = std::string(HtmlType);
  std::string Body = {};
  std::string Location = {};              // where a redirect leads
  std::string Tag = {};                   // by which the asker may ask whether the body has changed
  std::string RetryAfter = {};            // when to come again: seconds, or a date
  std::int64_t Wait = 0;                  // milliseconds before the first byte
  std::size_t PieceSize = 0;              // 0: the body comes in one piece
  std::int64_t PieceGap = 0;              // milliseconds between two pieces
  std::optional<std::size_t> CutAt = {};  // the connection ends after so many bytes of the body

  std::string_view SentBody() const { return std::string_view(Body).substr(0, CutAt.value_or(Body.size())); }
  std::size_t SizeOfPiece() const { return PieceSize == 0 ? Body.size() : PieceSize; }
};

// From the request to the last byte, in milliseconds.
inline std::int64_t Duration(const Reply& reply) {
  const auto size = reply.SentBody().size();
  if (reply.PieceSize == 0 || size == 0) return reply.Wait;
  return reply.Wait + static_cast<std::int64_t>((size - 1) / reply.PieceSize) * reply.PieceGap;
}

}  // namespace practice
