// Imitates Microsoft's node-based containers: each allocates a head node when it is constructed, so
// that construction, also by a move, can fail.

#pragma once

#pragma GCC system_header

class Head {
 public:
  Head() : node(new char) {}
  Head(const Head& /*other*/) : Head() {}
  Head(Head&& /*other*/) noexcept(false) : Head() {}
  Head& operator=(const Head& /*other*/) { return Renew(); }
  Head& operator=(Head&& /*other*/) noexcept(false) { return Renew(); }
  ~Head() { delete node; }

 private:
  Head& Renew() {
    char* const another = new char;
    delete node;
    node = another;
    return *this;
  }

  char* node;
};
