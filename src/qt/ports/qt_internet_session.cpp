#include "qt/ports/qt_internet_session.h"

#include "qt/ports/qt_page_request.h"

namespace brelwin {

std::unique_ptr<PageRequest> QtInternetSession::OpenUrl(const PageQuery& query) {
  return std::make_unique<QtPageRequest>(query, proxies_);
}

}  // namespace brelwin
