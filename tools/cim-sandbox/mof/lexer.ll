/* The words of a MOF file. */
%option 8bit reentrant noyywrap nounput noinput never-interactive nodefault
%option prefix="mof_"
%option extra-type="sandbox::mof::Source*"

%{
#include "mof/grammar.h"
#include "mof/source.h"

#define YY_DECL \
  sandbox::mof::Parser::symbol_type mof_scan(sandbox::mof::Source& source, yyscan_t yyscanner)
#define YY_USER_ACTION source.advance(yytext, static_cast<std::size_t>(yyleng));
#define YY_FATAL_ERROR(text) throw std::bad_alloc()

using Parser = sandbox::mof::Parser;
%}

letter      [A-Za-z_\x80-\xff]
name        {letter}({letter}|[0-9])*
sign        [-+]?
exponent    [eE][-+]?[0-9]+

%x STRING
%x COMMENT

%%

[ \t\r\n\f]+            { }
"//"[^\n]*              { }
"/*"                    { source.begin_text(); BEGIN(COMMENT); }
<COMMENT>"*/"           { BEGIN(INITIAL); }
<COMMENT>[^*]+          { }
<COMMENT>"*"            { }
<COMMENT><<EOF>>        { return source.lexical_error(source.text_place(),
                                                      "expected \"*/\" to end this comment"); }

"#"[ \t]*[pP][rR][aA][gG][mM][aA]  { return Parser::make_PRAGMA(source.place()); }
"{"                     { return Parser::make_OPEN_BRACE(source.place()); }
"}"                     { return Parser::make_CLOSE_BRACE(source.place()); }
"["                     { return Parser::make_OPEN_BRACKET(source.place()); }
"]"                     { return Parser::make_CLOSE_BRACKET(source.place()); }
"("                     { return Parser::make_OPEN_PARENTHESIS(source.place()); }
")"                     { return Parser::make_CLOSE_PARENTHESIS(source.place()); }
":"                     { return Parser::make_COLON(source.place()); }
";"                     { return Parser::make_SEMICOLON(source.place()); }
","                     { return Parser::make_COMMA(source.place()); }
"="                     { return Parser::make_EQUALS(source.place()); }

{name}                  { return source.word(yytext); }
"$"{name}               { return Parser::make_ALIAS(yytext, source.place()); }

{sign}[01]+[bB]                     { return source.integer(yytext, 2); }
{sign}"0"[xX][0-9a-fA-F]+           { return source.integer(yytext, 16); }
{sign}"0"[0-7]+                     { return source.integer(yytext, 8); }
{sign}("0"|[1-9][0-9]*)             { return source.integer(yytext, 10); }
{sign}[0-9]*"."[0-9]+{exponent}?    { return source.real(yytext); }

"'"([^'\\\n]{1,4}|\\[xX][0-9a-fA-F]{1,4}|\\.)"'"  { return source.character(yytext); }

"\""                    { source.begin_text(); BEGIN(STRING); }
<STRING>"\""            { BEGIN(INITIAL); return source.end_text(); }
<STRING>[^\"\\\n]+      { source.append_text(yytext, static_cast<std::size_t>(yyleng)); }
<STRING>\\([xX][0-9a-fA-F]{1,4}|[^\n])  {
                          if (!source.append_escape(yytext)) return Parser::make_YYerror(source.place());
                        }
<STRING>\\?\n           { return source.lexical_error(source.text_place(),
                              "expected a closing quote before the end of this line"); }
<STRING><<EOF>>         { return source.lexical_error(source.text_place(),
                              "expected a closing quote before the end of the file"); }
<STRING>\\              { return source.lexical_error(source.text_place(),
                              "expected a closing quote before the end of the file"); }

<<EOF>>                 { return Parser::make_END(source.next_place()); }
.                       { return source.unknown_character(yytext); }

%%

namespace sandbox::mof {

std::optional<Problem> read_source(const std::string& file, std::string_view content,
                                   Receiver& receiver) {
  Source source(file, receiver);
  yyscan_t scanner = nullptr;
  if (mof_lex_init_extra(&source, &scanner) != 0) return Problem{source.place(), "out of memory"};
  mof__scan_bytes(content.data(), static_cast<int>(content.size()), scanner);
  Parser(source, scanner).parse();
  mof_lex_destroy(scanner);
  return source.problem();
}

}  // namespace sandbox::mof
