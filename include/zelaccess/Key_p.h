// Key_p: the operations of a key that drivers of banks use. A host seldom needs them.
#ifndef ZELACCESS_KEY_P_H
#define ZELACCESS_KEY_P_H

#include "zelaccess/Key.h"

namespace zel {

class LibFile;

// Kinds of a key's components, as GetCompKind gives them.
enum keyKinds : std::int32_t {
  keyNone = 0,    // position not in use
  keyNumber = 1,  // component number
  keyText = 2,    // character ID
  keyCas = 3      // CAS number
};

class ZEL_API Key_p : public Key {
 public:
  static void DelKey(Key_p*& key);

  Key_p(Key_p const&) : Key() {}
  Key_p& operator=(Key_p const&) { return *this; }

  // Number of components; for a key set by words, the number of words.
  virtual std::int32_t GetCompCount() const = 0;
  // The getters take a position from 0; outside 0..2 they give kind 0, empty and 0.
  virtual std::int32_t GetCompKind(std::int32_t position) const = 0;
  // The CAS number of a component of kind 3, the empty casn otherwise.
  virtual void GetCompCasn(std::int32_t position, casn& number) const = 0;
  // The ID of a component of kind 2 (buffer of 9 characters), empty for kinds 0 and 1. For kind 3
  // the buffer is left as it stands: a CAS number is given by GetCompCasn alone.
  virtual void GetCompText(std::int32_t position, char* text) const = 0;
  // The number of kind 1, the long value of kind 3, 0 otherwise.
  virtual void GetCompNumber(std::int32_t position, long& number) const = 0;
  // The 10 key words as the last ResolveKey left them; they live as long as the key.
  virtual std::int32_t const* GetKeyWords() const = 0;
  // Widens a key of fewer components than an index of `fullLength` words has: one component on two
  // words is doubled; otherwise every position from `shortLength` on becomes the number
  // 2147483647, which sorts behind all real numbers. Does nothing when the lengths are equal or the
  // key has `fullLength` components already.
  virtual void FitCompCount(std::int32_t fullLength, std::int32_t shortLength) = 0;
  // Forgets the numbers that the name index gave.
  virtual void ClearCache() = 0;
  // Turns the components into key words for `library`. Mode 0 and 3 keep their order; 1 and 2 sort
  // them ascending, and 2 reports through `swapped` that the sort changed the order. False when a
  // component is known neither to the library nor to the name index.
  virtual bool ResolveKey(LibFile* library, std::int32_t mode, bool& swapped) = 0;
  // Reserved; does nothing.
  virtual void ReservedKey(void* first, void* second) = 0;

 protected:
  Key_p() = default;
  ~Key_p() override;
};

}  // namespace zel

#endif  // ZELACCESS_KEY_P_H
