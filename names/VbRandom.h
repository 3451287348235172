#pragma once
// The old run-time's pseudo-random generator, reproduced exactly: the engineer names were
// scrambled with it, and files written by engineers' installations must read back.
#include <cstdint>

class VbRandom {
 public:
  // The state at process start.
  static constexpr uint32_t kInitialState = 0x50000;

  // Rnd() and Rnd(x) for x > 0: the next value of the sequence, in [0, 1).
  float Next();
  // Rnd(x) for x < 0: the state taken from the bits of x as a Single, then one step.
  float Restart(float negative);
  // Randomize n: the middle bits of the state from the high word of n as a Double; no step.
  void Randomize(double n);

  uint32_t State() const { return state_; }

 private:
  void Step();
  uint32_t state_ = kInitialState;
};
