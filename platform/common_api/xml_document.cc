#include "XMLDocument.h"

#include <sys/mman.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory_resource>
#include <new>
#include <string_view>
#include <utility>

#include "xml_content.h"
#include "xml_element.h"
#include "xml_plain_text.h"
#include "xml_reader.h"
#include "xml_scanner.h"

namespace {

constexpr std::size_t kHighestSize = std::size_t{64} * 1024 * 1024;
constexpr const char* kTooLarge = "is larger than 64 MiB";

struct Free {
  void operator()(char* bytes) const { std::free(bytes); }
};
using Bytes = std::unique_ptr<char[], Free>;

// For a long text the kernel is asked for large pages: the usual small ones take
// longer to be mapped and cleared than to be read into.
Bytes allocate(std::size_t size) {
  constexpr std::size_t kLargePage = std::size_t{2} * 1024 * 1024;
  const bool isLong = size >= kLargePage / 2;
  const std::size_t whole = (size + kLargePage - 1) / kLargePage * kLargePage;
  Bytes bytes(
      static_cast<char*>(isLong ? std::aligned_alloc(kLargePage, whole) : std::malloc(size)));
  if (!bytes) throw std::bad_alloc();
  // Where there are none, small pages do.
  if (isLong) madvise(bytes.get(), whole, MADV_HUGEPAGE);
  return bytes;
}

// Bytes for the elements of a text of this size, if they are not unusually many.
std::size_t roomForElements(std::size_t size) {
  using driver_feature::Element;
  return driver_feature::usualElements(size) * sizeof(Element) + alignof(Element);
}

// A text of a document, which the pages of a file are read into once. A NUL
// character follows it, and room for the elements of most texts: in the same
// large pages they take little of the kernel's time.
class Text {
 public:
  Text() = default;
  explicit Text(std::string_view text) {
    grow(text.size());
    std::memcpy(bytes_.get(), text.data(), text.size());
    setSize(text.size());
  }

  void grow(std::size_t capacity) {
    Bytes bytes = allocate(capacity + 1 + roomForElements(capacity));
    if (size_ > 0) std::memcpy(bytes.get(), bytes_.get(), size_);
    bytes_ = std::move(bytes);
    capacity_ = capacity;
    setSize(size_);
  }

  void setSize(std::size_t size) {
    size_ = size;
    bytes_[size] = '\0';
  }

  // For the elements.
  char* room() const { return bytes_.get() + capacity_ + 1; }
  std::size_t sizeOfRoom() const { return roomForElements(capacity_); }

  char* data() const { return bytes_.get(); }
  std::size_t size() const { return size_; }
  std::size_t capacity() const { return capacity_; }
  std::string_view view() const { return {bytes_.get(), size_}; }

 private:
  Bytes bytes_;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

// How much is read at once: of a file all, and one byte that is not there, so
// that its end is met before the text grows.
std::size_t firstCapacity(const struct stat& status) {
  constexpr std::size_t kOfOthers = 65536;
  if (!S_ISREG(status.st_mode)) return kOfOthers;
  const auto size = static_cast<std::size_t>(std::max<off_t>(status.st_size, 0));
  return std::min(size, kHighestSize) + 1;
}

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

// Reads all that the file has left.
bool readFile(std::FILE* file, const struct stat& status, Text& text, XMLProblem& problem) {
  text = Text();
  text.grow(firstCapacity(status));
  std::size_t count = 0;
  while ((count = std::fread(text.data() + text.size(), 1, text.capacity() - text.size(), file)) >
         0) {
    text.setSize(text.size() + count);
    if (text.size() > kHighestSize) {
      problem.text = kTooLarge;
      return false;
    }
    if (text.size() == text.capacity()) text.grow(std::min(2 * text.size(), kHighestSize + 1));
  }
  if (std::ferror(file) == 0) return true;
  problem.text = std::string("cannot be read: ") + std::strerror(errno);
  return false;
}

}  // namespace

struct XMLDocument::Tree {
  // The root is null if the text cannot be scanned.
  Tree(Text source, driver_feature::Names names)
      : text(std::move(source)), room(text.room(), text.sizeOfRoom()), elements(&room) {
    root = driver_feature::scanPlainText(text.data(), text.size(), names, elements);
  }

  // Reads a text that is not plain XML, or not XML. A tree of libxml2 takes ten
  // times as much memory as this one: it is copied and freed.
  static std::unique_ptr<Tree> readCarefully(std::string_view source, const std::string& name,
                                             XMLProblem& problem) {
    if (source.empty()) {
      problem = {1, 1, "is empty"};
      return nullptr;
    }
    auto careful = driver_feature::readTree(source, name, problem);
    if (!careful) return nullptr;
    const auto plain = driver_feature::plainTextOf(*careful);
    careful.reset();
    auto tree = std::make_unique<Tree>(Text(plain.text), driver_feature::Names::kAny);
    if (tree->root == nullptr) {
      problem = {1, 1, "cannot be read"};
      return nullptr;
    }
    for (std::size_t i = 0; i < tree->elements.size(); ++i) {
      tree->elements[i].setLine(plain.lines[i]);
    }
    return tree;
  }

  Text text;
  std::pmr::monotonic_buffer_resource room;  // In the text's memory, as long as it lasts.
  driver_feature::Elements elements;
  driver_feature::Element* root;
};

XMLDocument::XMLDocument(std::unique_ptr<Tree> tree) : tree_(std::move(tree)) {}

XMLDocument::~XMLDocument() = default;

std::unique_ptr<XMLDocument> XMLDocument::parseFile(const std::string& path, XMLProblem& problem) {
  problem = {};
  const File file(std::fopen(path.c_str(), "rbe"), &std::fclose);
  if (!file) {
    problem.text = std::string("cannot be opened: ") + std::strerror(errno);
    return nullptr;
  }
  struct stat status {};
  if (fstat(fileno(file.get()), &status) == 0 && S_ISDIR(status.st_mode)) {
    problem.text = "is a directory";
    return nullptr;
  }
  Text text;
  if (!readFile(file.get(), status, text, problem)) return nullptr;
  // A pipe gives its text once.
  Text original = S_ISREG(status.st_mode) ? Text() : Text(text.view());
  auto tree = std::make_unique<Tree>(std::move(text), driver_feature::Names::kPlain);
  if (tree->root == nullptr) {
    tree.reset();
    if (S_ISREG(status.st_mode)) {
      std::rewind(file.get());
      if (!readFile(file.get(), status, original, problem)) return nullptr;
    }
    tree = Tree::readCarefully(original.view(), path, problem);
    if (!tree) return nullptr;
  }
  return std::unique_ptr<XMLDocument>(new XMLDocument(std::move(tree)));
}

std::unique_ptr<XMLDocument> XMLDocument::parseText(const std::string& text,
                                                    const std::string& name, XMLProblem& problem) {
  problem = {};
  if (text.size() > kHighestSize) {
    problem.text = kTooLarge;
    return nullptr;
  }
  auto tree = std::make_unique<Tree>(Text(text), driver_feature::Names::kPlain);
  if (tree->root == nullptr) tree = Tree::readCarefully(text, name, problem);
  if (!tree) return nullptr;
  return std::unique_ptr<XMLDocument>(new XMLDocument(std::move(tree)));
}

void* XMLDocument::root() const {
  return tree_->root;
}

int XMLDocument::lineOf(void* element) {
  return element != nullptr ? static_cast<driver_feature::Element*>(element)->line() : 0;
}

XMLContent XMLDocument::contentOf(void* element) {
  if (element == nullptr) return {};
  return driver_feature::contentOf(*static_cast<driver_feature::Element*>(element));
}
