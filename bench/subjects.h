// The groups of rows that the benchmark measures.
#pragma once

#include "calls.h"
#include "harness.h"

namespace vorla::bench {

/// Invoke and the lookup of names, ours against the type library's.
void measureLateBinding(Bench& bench, const Component& component);

/// Methods called through the vtable against plain functions that make the same string.
void measureEarlyBinding(Bench& bench, const Component& component);

/// Making and releasing an object, against another in-process class.
void measureCreation(Bench& bench, const Component& component);

/// A host's list driven by name, against the same loop written by hand.
void measureHostObjects(Bench& bench, const Component& component);

/// Time per character for long texts against short ones.
void measureGrowth(Bench& bench, const Component& component);

/// A form's texts against the bare reads of the language file, and a large form against a small one.
void measureFormLoading(Bench& bench, const Component& component);

}  // namespace vorla::bench
