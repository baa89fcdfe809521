// Gives back what the C++ run-time of this compiler, which is linked into the library, keeps for
// exceptions in case memory runs out: some 70 KB at every load, which it leaves behind when a host
// frees the library.

namespace __gnu_cxx {
void __freeres();  // NOLINT(clang-diagnostic-reserved-identifier)
}

namespace {

// Made before everything else and therefore ended after it.
struct ExceptionReserve {
  ~ExceptionReserve() { __gnu_cxx::__freeres(); }
};

[[gnu::init_priority(101)]] ExceptionReserve reserve;

}  // namespace
