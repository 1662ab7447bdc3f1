// The service's records: plain values, one field per JSON key, named exactly as on the wire.
// Every time value is a double of milliseconds since 1 January 1970 UTC.
// One description per record (Boost.Describe) serves decoding, encoding, hashing and the views.
#pragma once

#include "records/board_records.hpp"
#include "records/detail_records.hpp"
#include "records/other_records.hpp"
