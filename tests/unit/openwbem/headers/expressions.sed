# Makes of each recorded line, type of EXPRESSION => TYPE, a line that compiles when it is true of the headers, or,
# when the expression was refused, when it is accepted.
1i #include "Operands.hpp"
s/^type of (.*) => <does not compile>$/static_assert(Accepted<decltype((\1))>::value);/
t
s/^type of (.*) => (.*)$/static_assert(std::is_same_v<decltype((\1)), \2>);/
