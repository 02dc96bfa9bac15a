// A stream for functions that print, whose text can be read.
#pragma once

#include <cstddef>
#include <cstdio>
#include <string>

namespace zel::test {

class TextStream {
 public:
  TextStream() : stream_(std::tmpfile()) {}
  TextStream(TextStream const&) = delete;
  TextStream& operator=(TextStream const&) = delete;
  ~TextStream() {
    if (stream_ != nullptr) std::fclose(stream_);
  }

  std::FILE* Get() const { return stream_; }
  // What has been printed so far.
  std::string Text() const {
    std::rewind(stream_);
    std::string text;
    char bytes[1024];
    while (std::size_t const n = std::fread(bytes, 1, sizeof bytes, stream_)) text.append(bytes, n);
    return text;
  }

 private:
  std::FILE* stream_;
};

}  // namespace zel::test
