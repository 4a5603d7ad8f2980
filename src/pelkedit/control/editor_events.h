#pragma once

#include <cstdint>
#include <string>

namespace pelkedit {

// Status codes shared with the host.
enum EditIBOStatusEnum : std::int32_t {
  eEditStatusUnknown = 0,
  eEditStatusOpen = 1,
  eEditStatusWon = 2,
  eEditStatusLost = 3,
  eEditStatusCancelled = 4,
};

// The host's side of the component's three events, raised synchronously.
class IEditorEvents {
 public:
  virtual ~IEditorEvents() = default;
  virtual void SetFormCaption(const std::string& caption) = 0;
  virtual void SetIBOStatus(std::int32_t status) = 0;
  virtual void SetExpertMode(bool expert) = 0;
};

}  // namespace pelkedit
