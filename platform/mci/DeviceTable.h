#pragma once
// The open devices, by alias matched without regard to case. Owns them:
// removing a device closes it.

#include <map>
#include <memory>
#include <string>

namespace platform::mci {

class PlaybinDevice;

class DeviceTable {
 public:
  DeviceTable();
  ~DeviceTable();
  DeviceTable(const DeviceTable&) = delete;
  DeviceTable& operator=(const DeviceTable&) = delete;

  // The device open under alias, or null.
  PlaybinDevice* Find(const std::string& alias) const;
  bool Contains(const std::string& alias) const { return Find(alias) != nullptr; }

  // Adds a device under an alias not in use.
  void Add(const std::string& alias, std::unique_ptr<PlaybinDevice> device);
  // Closes the device under alias; false when there was none.
  bool Remove(const std::string& alias);
  void Clear();

 private:
  static std::string Key(const std::string& alias);

  std::map<std::string, std::unique_ptr<PlaybinDevice>> devices_;
};

}  // namespace platform::mci
