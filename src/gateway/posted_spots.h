// What the gateway has posted within a day, over restarts: Sotawatch shows it again, and where a post does
// not tell that a gateway made it, it looks like a spot of whose login it was.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/date_time.h"
#include "core/line_file.h"
#include "platform/host.h"
#include "spots/spot.h"

namespace brelwin {

class PostedSpots {
 public:
  explicit PostedSpots(Host& host);

  // Keeps the station, the frequency and the comment in "GatewayPostedSpots.txt". To be called when
  // the post is about to leave: one of unknown outcome may be at Sotawatch. A comment without letters and
  // digits is anybody's and not kept.
  void Remember(const Spot& spot, std::string_view comment);

  // Whether such a spot was posted in the last 24 hours: of the same base callsign, less than 1 kHz away,
  // with the same letters and digits in its comment. Other signs may come back in another form.
  bool Holds(const Spot& spot);

 private:
  struct Post {
    DateTime UTC;
    std::string BaseCallsign;
    float FrequencyInMhz = 0;
    std::string Letters;  // of the comment
  };

  void LoadOnce();
  void ForgetOld();
  void Save();

  Host& host_;
  LineFile file_;
  bool isLoaded_ = false;
  std::vector<Post> posts_;  // the oldest first
};

}  // namespace brelwin
