#pragma once

/// Uses a little of every subsystem; returns the number of wrong answers.
int CountWrongAnswers();

/// A hash over the bits of inlined operations on seeded operands; the same in every build.
unsigned long long HashOfInlinedResults();
