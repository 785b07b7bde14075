/* The words of a query. */
%option 8bit reentrant noyywrap nounput noinput never-interactive nodefault case-insensitive
%option prefix="wql_"
%option extra-type="sandbox::query::Source*"

%{
#include "query/grammar.h"
#include "query/source.h"

#define YY_DECL \
  sandbox::query::Parser::symbol_type wql_scan(sandbox::query::Source& source, yyscan_t yyscanner)
#define YY_USER_ACTION source.advance(static_cast<int>(yyleng));
#define YY_FATAL_ERROR(text) throw std::bad_alloc()

using Parser = sandbox::query::Parser;
using sandbox::query::Operator;
%}

name  [A-Za-z_\x80-\xff][A-Za-z0-9_\x80-\xff]*

%%

[ \t\r\n]+  { }
"select"    { return Parser::make_SELECT(source.column()); }
"from"      { return Parser::make_FROM(source.column()); }
"where"     { return Parser::make_WHERE(source.column()); }
"and"       { return Parser::make_AND(source.column()); }
"or"        { return Parser::make_OR(source.column()); }
"not"       { return Parser::make_NOT(source.column()); }
"like"      { return Parser::make_LIKE(source.column()); }
"is"        { return Parser::make_IS(source.column()); }
"isa"       { return Parser::make_ISA(source.column()); }
"null"      { return Parser::make_NULL_VALUE(source.column()); }
"true"      { return Parser::make_TRUE_VALUE(source.column()); }
"false"     { return Parser::make_FALSE_VALUE(source.column()); }
"*"         { return Parser::make_ASTERISK(source.column()); }
","         { return Parser::make_COMMA(source.column()); }
"("         { return Parser::make_OPEN_PARENTHESIS(source.column()); }
")"         { return Parser::make_CLOSE_PARENTHESIS(source.column()); }
"="         { return Parser::make_OPERATOR(Operator::Equal, source.column()); }
"<>"|"!="   { return Parser::make_OPERATOR(Operator::NotEqual, source.column()); }
"<"         { return Parser::make_OPERATOR(Operator::Less, source.column()); }
"<="        { return Parser::make_OPERATOR(Operator::LessOrEqual, source.column()); }
">"         { return Parser::make_OPERATOR(Operator::Greater, source.column()); }
">="        { return Parser::make_OPERATOR(Operator::GreaterOrEqual, source.column()); }
{name}      { return Parser::make_IDENTIFIER(yytext, source.column()); }
[-+]?[0-9]+ { return source.integer(yytext); }
[-+]?[0-9]*"."[0-9]+(e[-+]?[0-9]+)?  { return source.real(yytext); }
"'"([^'\\]|\\(.|\n)|"''")*"'"             { return source.text(yytext); }
"\""([^\"\\]|\\(.|\n)|"\"\"")*"\""        { return source.text(yytext); }
["']        { return source.lexical_error("expected an end for the string that begins here"); }
<<EOF>>     { return Parser::make_END(source.next_column()); }
.           { return source.lexical_error("expected a word of the query language"); }

%%

namespace sandbox::query {

Outcome<Query> parse(std::string_view text) {
  if (text.size() > longest_query) return invalid_query(1, "expected at most 64 KiB");
  Source source;
  yyscan_t scanner = nullptr;
  if (wql_lex_init_extra(&source, &scanner) != 0) return invalid_query(1, "out of memory");
  wql__scan_bytes(text.data(), static_cast<int>(text.size()), scanner);
  Parser(source, scanner).parse();
  wql_lex_destroy(scanner);
  return source.result();
}

}  // namespace sandbox::query
