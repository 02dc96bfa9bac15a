/// \file
/// Key_p: the operations of a key that drivers of banks use. A host seldom needs them.
#ifndef ZELACCESS_KEY_P_H
#define ZELACCESS_KEY_P_H

#include "zelaccess/Key.h"

namespace zel {

class LibFile;

/// Kinds of a key's components, as GetCompKind returns them.
enum keyKinds : std::int32_t {
  keyNone = 0,    ///< Position not in use.
  keyNumber = 1,  ///< Component number.
  keyText = 2,    ///< Character ID.
  keyCas = 3      ///< CAS number.
};

/// The wider layer of a key: every Key is one of these, which dynamic_cast returns. One key belongs
/// to one thread.
class ZEL_API Key_p : public Key {
 public:
  /// Ends the key and nulls the handle.
  /// \param key  the handle; null does nothing
  static void DelKey(Key_p*& key);

  /// Copies no data: keys are handles.
  Key_p(Key_p const&) : Key() {}
  /// Copies nothing.
  /// \return this object
  Key_p& operator=(Key_p const&) { return *this; }

  /// Returns the number of components.
  /// \return 0 to 3; for a key set by words, and for one that was widened, the number of words
  virtual std::int32_t GetCompCount() const = 0;
  /// Returns the kind of a component.
  /// \param position  from 0
  /// \return one of keyKinds; keyNone outside 0 to 2 and for a key set by words
  virtual std::int32_t GetCompKind(std::int32_t position) const = 0;
  /// Reports the CAS number of a component.
  /// \param position  from 0
  /// \param number    receives the CAS number of a component of kind keyCas, else the empty casn
  virtual void GetCompCasn(std::int32_t position, casn& number) const = 0;
  /// Copies the ID of a component.
  /// \param position  from 0
  /// \param text      buffer of 9 characters for the ID of a component of kind keyText; empty for
  ///                  kinds keyNone and keyNumber, left as is for keyCas, whose number only
  ///                  GetCompCasn reports; null does nothing
  virtual void GetCompText(std::int32_t position, char* text) const = 0;
  /// Reports the number of a component.
  /// \param position  from 0
  /// \param number    receives the component number of kind keyNumber, the CAS number of kind
  ///                  keyCas as one integer, else 0
  virtual void GetCompNumber(std::int32_t position, long& number) const = 0;
  /// Returns the key words as the last ResolveKey left them.
  /// \return 10 words, which live as long as the key; never null
  virtual std::int32_t const* GetKeyWords() const = 0;
  /// Widens a key of fewer components than an index has words. One component on two words is
  /// doubled; otherwise every position from `shortLength` on becomes the number 2147483647, which
  /// sorts after all real numbers. Does nothing when the lengths are equal or the key has
  /// `fullLength` components already.
  /// \param fullLength   words of the index
  /// \param shortLength  words of the shortest key that the bank allows
  virtual void FitCompCount(std::int32_t fullLength, std::int32_t shortLength) = 0;
  /// Forgets the numbers that the name index returned.
  virtual void ClearCache() = 0;
  /// Turns the components into key words for a library. Throws a block error.
  /// \param library  library that is searched first; null searches only the name index
  /// \param mode     0 and 3 keep the order of the components; 1 and 2 sort them ascending
  /// \param swapped  receives true where mode is 2 and the sort changed the order
  /// \return false when a component is known neither to the library nor to the name index
  virtual bool ResolveKey(LibFile* library, std::int32_t mode, bool& swapped) = 0;
  /// Reserved; does nothing.
  /// \param first,second  may be null
  virtual void ReservedKey(void* first, void* second) = 0;

 protected:
  Key_p() = default;
  ~Key_p() override;
};

}  // namespace zel

#endif  // ZELACCESS_KEY_P_H
