#include "support/words_of_rows.hpp"

namespace vellix::test {

template void writeWords(const BoardState&, std::ostream&);
template void writeWords(const FileDetail&, std::ostream&);
template void writeWords(const FileItem&, std::ostream&);

}  // namespace vellix::test
