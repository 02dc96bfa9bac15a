/// \file
/// Key: names an item of a bank by up to three components, or by plain words.
#ifndef ZELACCESS_KEY_H
#define ZELACCESS_KEY_H

#include <cstdint>

#include "zelaccess/Casn.h"
#include "zelaccess/Export.h"

namespace zel {

/// A key names the component or components that an item is about. Each component is given as a
/// component number (long), a character ID (text, converted to upper case, at most 8 characters
/// kept) or a CAS number (casn). The number that an ID or CAS number means is looked up when the
/// key is used on a library: in the library, and in the name index (LibFile.h) if the library does
/// not know it.
///
///     Key* key = Key::NewKey();
///     key->SetKey("ETHANOL", "WATER");   // a pair, by character ID
///     key->SetKey(10000044L);            // one component, by number
///     Key::DelKey(key);                  // key is null now
///
/// **Notes.** SetKey(0) is ambiguous between a number and a null text: write SetKey(0L). A null
/// text counts as the empty text, which no library knows. Only the low 32 bits of a number count:
/// SetKey(4294967297L) is SetKey(1L). A bank whose items may be named by fewer components than its
/// keys have widens a short key when the key is used (a single component becomes the pair with
/// itself), and the key keeps the wider form.
///
/// **A key that is used again keeps old words.** Key words that were never written are 0, and those
/// that a new SetKey does not reach stay as the last use left them; all of them stay when a
/// resolution fails. After SetKey(1L, 2L) and a use, SetKey(1L) on a bank of pairs that does not
/// widen keys reads, overwrites or deletes the item (1, 2). Make a new key for each item.
///
/// **Threads.** One key belongs to one thread.
class ZEL_API Key {
 public:
  /// Makes an empty key. Throws std::bad_alloc.
  /// \return the key, which the caller ends with DelKey; never null
  static Key* NewKey();
  /// Ends the key and nulls the handle.
  /// \param key  the handle; null does nothing
  static void DelKey(Key*& key);

  /// Copies no data: keys are handles.
  Key(Key const&) {}
  /// Copies nothing.
  /// \return this object
  Key& operator=(Key const&) { return *this; }

  /// \name Three components
  ///@{

  /// Replaces the key by three components.
  /// \param first,second,third  each a CAS number, a character ID or a component number; a null
  ///                            text is the empty text
  virtual void SetKey(casn const& first, casn const& second, casn const& third) = 0;
  virtual void SetKey(casn const& first, casn const& second, char const* third) = 0;
  virtual void SetKey(casn const& first, casn const& second, long third) = 0;
  virtual void SetKey(casn const& first, char const* second, casn const& third) = 0;
  virtual void SetKey(casn const& first, char const* second, char const* third) = 0;
  virtual void SetKey(casn const& first, char const* second, long third) = 0;
  virtual void SetKey(casn const& first, long second, casn const& third) = 0;
  virtual void SetKey(casn const& first, long second, char const* third) = 0;
  virtual void SetKey(casn const& first, long second, long third) = 0;
  virtual void SetKey(char const* first, casn const& second, casn const& third) = 0;
  virtual void SetKey(char const* first, casn const& second, char const* third) = 0;
  virtual void SetKey(char const* first, casn const& second, long third) = 0;
  virtual void SetKey(char const* first, char const* second, casn const& third) = 0;
  virtual void SetKey(char const* first, char const* second, char const* third) = 0;
  virtual void SetKey(char const* first, char const* second, long third) = 0;
  virtual void SetKey(char const* first, long second, casn const& third) = 0;
  virtual void SetKey(char const* first, long second, char const* third) = 0;
  virtual void SetKey(char const* first, long second, long third) = 0;
  virtual void SetKey(long first, casn const& second, casn const& third) = 0;
  virtual void SetKey(long first, casn const& second, char const* third) = 0;
  virtual void SetKey(long first, casn const& second, long third) = 0;
  virtual void SetKey(long first, char const* second, casn const& third) = 0;
  virtual void SetKey(long first, char const* second, char const* third) = 0;
  virtual void SetKey(long first, char const* second, long third) = 0;
  virtual void SetKey(long first, long second, casn const& third) = 0;
  virtual void SetKey(long first, long second, char const* third) = 0;

  ///@}
  /// \name Two components
  ///@{

  /// Replaces the key by two components.
  /// \param first,second  each a CAS number, a character ID or a component number; a null text is
  ///                      the empty text
  virtual void SetKey(casn const& first, casn const& second) = 0;
  virtual void SetKey(casn const& first, char const* second) = 0;
  virtual void SetKey(casn const& first, long second) = 0;
  virtual void SetKey(char const* first, casn const& second) = 0;
  virtual void SetKey(char const* first, char const* second) = 0;
  virtual void SetKey(char const* first, long second) = 0;
  virtual void SetKey(long first, casn const& second) = 0;
  virtual void SetKey(long first, char const* second) = 0;

  ///@}
  /// \name One component
  ///@{

  /// Replaces the key by one component.
  /// \param first  a CAS number or a character ID; a null text is the empty text
  virtual void SetKey(casn const& first) = 0;
  virtual void SetKey(char const* first) = 0;

  ///@}

  /// Replaces the key by three component numbers.
  /// \param first,second,third  the numbers, of which the low 32 bits count
  virtual void SetKey(long first, long second, long third) = 0;
  /// Replaces the key by two component numbers.
  /// \param first,second  the numbers, of which the low 32 bits count
  virtual void SetKey(long first, long second) = 0;
  /// Replaces the key by one component number.
  /// \param first  the number, of which the low 32 bits count
  virtual void SetKey(long first) = 0;

  /// Empties the key.
  virtual void ClearKey() = 0;
  /// Sets the key's words directly: plain numbers, or text already packed.
  /// \param count  number of words, of which at most 10 are kept; below 1 empties the key
  /// \param words  the words; null empties the key
  virtual void SetKeyWords(long count, std::int32_t const* words) = 0;
  /// Packs a text, 4 characters a word, and sets its first words directly.
  /// \param count  number of words, of which at most 10 are kept; below 1 empties the key
  /// \param text   the text, filled up with blanks; null is the empty text
  virtual void SetKeyText(long count, char const* text) = 0;

 protected:
  Key() = default;
  virtual ~Key();
};

}  // namespace zel

#endif  // ZELACCESS_KEY_H
