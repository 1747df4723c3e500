// The groups of rows that the benchmark measures.
#pragma once

#include "calls.h"
#include "harness.h"

namespace vorla::bench {

/// Invoke and the lookup of names, compared with the type library's.
void measureLateBinding(Bench& bench, const Component& component);

/// Methods called through the vtable, compared with plain functions that make the same string.
void measureEarlyBinding(Bench& bench, const Component& component);

/// Creating and releasing an object, compared with another in-process class.
void measureCreation(Bench& bench, const Component& component);

/// A host's list driven by name, compared with the same loop written by hand.
void measureHostObjects(Bench& bench, const Component& component);

/// Searches in a host's list and in large arrays.
void measureSearches(Bench& bench, const Component& component);

/// Time per character for long texts compared with short ones.
void measureGrowth(Bench& bench, const Component& component);

/// Images painted transparent and disabled, compared with the system's functions.
void measurePainting(Bench& bench, const Component& component);

/// Loading a form's texts compared with just reading them from the language file, and a large form with a
/// small one.
void measureFormLoading(Bench& bench, const Component& component);

}  // namespace vorla::bench
