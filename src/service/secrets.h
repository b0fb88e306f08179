// Random secrets and their fingerprints.
#pragma once

#include <string>
#include <string_view>

namespace cuvexa::service {

/// That many random bytes, in hex.
std::string random_hex(std::size_t bytes);

/// SHA-256, in hex.
std::string sha256(std::string_view text);

/// What is stored of a secret: HMAC-SHA-256 under its salt, in hex.
std::string salted(std::string_view secret, std::string_view salt);

/// Whether two texts are equal; takes as long for a near miss as for a far one.
bool same_secret(std::string_view one, std::string_view other);

}  // namespace cuvexa::service
