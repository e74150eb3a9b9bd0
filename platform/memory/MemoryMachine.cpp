#include "platform/memory/MemoryMachine.h"

namespace platform::memory {
namespace {

constexpr const char* kProgramFolder = "C:\\Program Files\\Scrubhaven";

}  // namespace

MemoryMachine::MemoryMachine()
    : files_(disk_, faults_),
      fileObjects_(disk_, faults_),
      shell_(disk_, faults_),
      version_(faults_),
      registry_(version_, faults_),
      profiles_(disk_, faults_),
      scriptShell_(registry_, faults_),
      environment_(kProgramFolder, faults_),
      ui_(disk_, faults_),
      urlCache_(faults_),
      urlHistory_(faults_),
      calendar_(faults_) {
  disk_.addDrive('C');
  disk_.addFolder(kProgramFolder);
  disk_.setCurrentFolder(kProgramFolder);
}

}  // namespace platform::memory
