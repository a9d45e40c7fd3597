#pragma once

#include "components/component.h"

namespace quorvane {

/// The hashes of System.Security.Cryptography, plain and with a key.
extern const Component kMd5;
extern const Component kSha1;
extern const Component kSha256;
extern const Component kSha384;
extern const Component kSha512;
extern const Component kHmacMd5;
extern const Component kHmacSha1;
extern const Component kHmacSha256;
extern const Component kHmacSha384;
extern const Component kHmacSha512;

}  // namespace quorvane
