#pragma once

/// Marks what hosts may use: libmrl is built with hidden visibility and exports only this.
#define MRL_EXPORT __attribute__((visibility("default")))
