#pragma once

// A program that links EveryNew.cpp has every form of operator new and delete replaced.
namespace plotvane::test {

// The program defines this. Called for each request for memory; false lets it fail.
bool MayAllocate() noexcept;

}  // namespace plotvane::test
