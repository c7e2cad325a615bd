#pragma once

#include "erp/host/HostDescription.h"

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

namespace orv::erp {

/// Reads one part of a host's description into it.
class DescriptionReader {
  public:
    DescriptionReader(HostDescription& description, std::string_view name) : description_(description), name_(name) {}

    void read(std::string_view json);

  private:
    using Json = nlohmann::ordered_json;

    void readClassType(const Json& json);
    void readConditions(const Json& json);
    void readTables(const Json& json);
    void readLookUpClasses(const Json& json);
    void readDeniedAccounts(const Json& json);

    HostDescription& description_;
    std::string name_;
};

} // namespace orv::erp
