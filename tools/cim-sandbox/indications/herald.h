// Turns changes of instances into indications.
#pragma once

#include <functional>
#include <string>

#include "model/change_listener.h"
#include "model/class_table.h"

namespace sandbox::indications {

// Announces CIM_InstCreation, CIM_InstModification and CIM_InstDeletion, and a
// CIM_ThresholdIndication when CurrentReading passes one of the instance's thresholds.  A class
// that the model does not have announces nothing.
class Herald : public ChangeListener {
 public:
  // `announce` gets whole export request documents, `now` tells the time as a CIM date-time.
  Herald(const ClassTable& classes, std::function<void(const std::string&)> announce,
         std::function<std::string()> now)
      : classes_(classes), announce_(std::move(announce)), now_(std::move(now)) {}

  void created(const ObjectPath& path, const Instance& instance) override;
  void modified(const ObjectPath& path, const Instance& before, const Instance& after) override;
  void deleted(const ObjectPath& path, const Instance& before) override;

 private:
  void announce_change(std::string_view class_name, const ObjectPath& path, const Instance& source,
                       const Instance* previous);
  void announce_crossings(const ObjectPath& path, const Instance& before, const Instance& after);
  void announce_crossing(const ObjectPath& path, const Instance& after, const Property& threshold);
  void announce(Instance indication);

  const ClassTable& classes_;
  std::function<void(const std::string&)> announce_;
  std::function<std::string()> now_;
  unsigned long count_ = 0;
};

// The present time, in UTC.
std::string present_time();

}  // namespace sandbox::indications
