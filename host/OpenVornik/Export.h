// Marks what the host's library exports.
#pragma once

#define OPENVORNIK_API __attribute__((visibility("default")))
