// A library that is loaded when it is used for the first time: what never uses it
// starts without it.
#ifndef HOST_BASE_LATE_LIBRARY_H_
#define HOST_BASE_LATE_LIBRARY_H_

namespace driver_feature::host {

class LateLibrary {
 public:
  // `package` is the Debian package that has it. Both texts must outlive this object.
  constexpr LateLibrary(const char* file, const char* package) : file_(file), package_(package) {}

  // Loads the library unless it is loaded already. Throws std::runtime_error when
  // it cannot be loaded or does not have the function.
  template <class Function>
  Function* function(const char* name) const {
    return reinterpret_cast<Function*>(find(name));
  }

 private:
  void* find(const char* name) const;

  const char* file_;
  const char* package_;
};

}  // namespace driver_feature::host

#endif  // HOST_BASE_LATE_LIBRARY_H_
