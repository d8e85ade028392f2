// At most one program runs in a folder: how a program finds out that it is not the first.
#pragma once

namespace plimo {

enum class Claim {
  granted,     // this program owns the folder now, or ownership cannot be determined
  handedOver,  // another program owns it, and has received the message
  noAnswer,    // another program owns it, and does not react
};

}  // namespace plimo
