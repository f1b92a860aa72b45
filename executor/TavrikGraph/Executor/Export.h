// Marks what the executor's library exports.
#pragma once

#define TAVRIKGRAPH_API __attribute__((visibility("default")))
