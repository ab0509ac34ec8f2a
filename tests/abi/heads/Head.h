// What Microsoft's containers of nodes do that others don't: each has a node of its own from its
// construction to its end, so that making one, also out of another that is moved from, takes memory
// and can fail.

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
