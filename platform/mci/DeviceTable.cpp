#include "platform/mci/DeviceTable.h"

#include <cctype>

#include "base/AsciiCase.h"
#include "platform/mci/PlaybinDevice.h"

namespace platform::mci {

DeviceTable::DeviceTable() = default;
DeviceTable::~DeviceTable() = default;

std::string DeviceTable::Key(const std::string& alias) { return AsciiLower(alias); }

PlaybinDevice* DeviceTable::Find(const std::string& alias) const {
  auto it = devices_.find(Key(alias));
  return it == devices_.end() ? nullptr : it->second.get();
}

void DeviceTable::Add(const std::string& alias, std::unique_ptr<PlaybinDevice> device) {
  devices_.emplace(Key(alias), std::move(device));
}

bool DeviceTable::Remove(const std::string& alias) { return devices_.erase(Key(alias)) > 0; }

void DeviceTable::Clear() { devices_.clear(); }

}  // namespace platform::mci
