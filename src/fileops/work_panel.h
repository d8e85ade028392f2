// The panel that shows how far a long command is: it goes when the command is over, however that ends.
#pragma once

#include "platform/progress.h"

namespace plimo {

class WorkPanel {
 public:
  explicit WorkPanel(Progress& pump) : pump_(pump) {}
  WorkPanel(const WorkPanel&) = delete;
  WorkPanel& operator=(const WorkPanel&) = delete;
  ~WorkPanel() { pump_.workEnds(); }

  void deleted(std::size_t file, std::size_t files) { pump_.deleted(file, files); }
  void copied(const CopyProgress& progress) { pump_.copied(progress); }

 private:
  Progress& pump_;
};

}  // namespace plimo
