// Marks what the graph library exports.
#pragma once

#define PELMOR_API __attribute__((visibility("default")))
