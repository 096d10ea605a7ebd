#include "tarvola/ado/filter.h"

#include <gtest/gtest.h>

#include "tarvola/ado/row_test.h"
#include "tests/ado/recordset_fixture.h"

namespace tarvola::ado {
namespace {

using test::errorOf;
using test::number;

/// The criteria written back, so that a table of cases can be read: clauses of one alternative joined by "&", the
/// alternatives by "|".
std::string shapeOf(std::string_view criteria) {
  static constexpr std::string_view signs[] = {"=", "<>", "<", "<=", ">", ">=", "^", "~"};
  Filter filter;
  filter.read(criteria);
  std::string shape;
  std::size_t place = 0;
  for (const std::size_t end : filter.alternativeEnds()) {
    if (place != 0) shape += "|";
    for (const std::size_t start = place; place < end; ++place) {
      const FilterClause& clause = filter.clauses()[place];
      if (place != start) shape += "&";
      shape.append(clause.field).append(signs[static_cast<std::size_t>(clause.comparison)]);
      switch (clause.kind) {
        case FilterValueKind::Text:
          shape.append("'").append(clause.text).append("'");
          break;
        case FilterValueKind::Number:
          shape += std::to_string(clause.number);
          break;
        case FilterValueKind::Date:
          shape.append("#").append(std::to_string(clause.number)).append("#");
          break;
        case FilterValueKind::Null:
          shape += "null";
          break;
      }
    }
  }
  return shape;
}

struct ReadCase {
  std::string_view name;
  std::string_view criteria;
  std::string_view shape;
};

class FilterReading : public testing::TestWithParam<ReadCase> {};

TEST_P(FilterReading, GivesItsClauses) { EXPECT_EQ(shapeOf(GetParam().criteria), GetParam().shape); }

INSTANTIATE_TEST_SUITE_P(
    Cases, FilterReading,
    testing::Values(
        ReadCase{"OneEquality", "KD_FORM = 'F113309'", "KD_FORM='F113309'"},
        ReadCase{"AndInAnyCase", "a='x' aNd b='y'", "a='x'&b='y'"},
        ReadCase{"WithoutBlanks", "a='x'AND b>=5AND c<>'z'", "a='x'&b>=5.000000&c<>'z'"},
        ReadCase{"AlternativesOfOr", "a=1 OR b=2 Or c=3", "a=1.000000|b=2.000000|c=3.000000"},
        ReadCase{"AndBindsTighterThanOr", "a=1 AND b=2 OR c=3 AND d=4", "a=1.000000&b=2.000000|c=3.000000&d=4.000000"},
        ReadCase{"AndGroupsInAnOr", "(a=1 AND c=3) OR (b=2 AND c=3)", "a=1.000000&c=3.000000|b=2.000000&c=3.000000"},
        ReadCase{"OrGroupInAnOr", "(a=1 OR b=2) OR c=3", "a=1.000000|b=2.000000|c=3.000000"},
        ReadCase{"AndGroupInAnAnd", "(a=1 AND b=2) AND c=3", "a=1.000000&b=2.000000&c=3.000000"},
        ReadCase{"NestedParentheses", "(((a=1)))", "a=1.000000"},
        ReadCase{"DoubledQuote", "a='it''s' AND b=''''", "a='it's'&b='''"}, ReadCase{"EmptyText", "a=''", "a=''"},
        ReadCase{"BracketedName", "[No Bukti] = '1'", "No Bukti='1'"},
        ReadCase{"Operators", "a<1 OR a>1 OR a<=1 OR a>=1 OR a<>1",
                 "a<1.000000|a>1.000000|a<=1.000000|a>=1.000000|a<>1.000000"},
        ReadCase{"NumbersHaveAPoint", "a=-12.5 AND b=$3 AND c=+1e3 AND d=.5",
                 "a=-12.500000&b=3.000000&c=1000.000000&d=0.500000"},
        ReadCase{"IsoDate", "a=#2010-12-31#", "a=#40543.000000#"},
        ReadCase{"DateWithSlashesHasTheMonthFirst", "a=#12/31/2010# OR a=#3/4/2010#",
                 "a=#40543.000000#|a=#40241.000000#"},
        ReadCase{"FencedTextKeepsItsQuotes", "a=#'abc'#", "a=''abc''"},
        ReadCase{"NullAsAWord", "a = NULL OR b <> null", "a=null|b<>null"},
        ReadCase{"TrueAndFalse", "a = True AND b = FALSE", "a=-1.000000&b=0.000000"},
        ReadCase{"LikeWithStarAtTheEnd", "a LIKE 'ab*'", "a^'ab'"},
        ReadCase{"LikeWithPercentAtBothEnds", "a like '%ab%'", "a~'ab'"},
        ReadCase{"LikeWithBothSigns", "a like '*ab%'", "a~'ab'"},
        ReadCase{"LikeWithoutWildcardIsEquality", "a LIKE 'ab'", "a='ab'"},
        ReadCase{"LikeOfEverything", "a LIKE '*' OR a LIKE '**'", "a^''|a~''"},
        ReadCase{"OtherSignsOfPatternsAreCharacters", "a LIKE '_?#[x]*'", "a^'_?#[x]'"}),
    [](const auto& one) { return std::string(one.param.name); });

class FilterRefusal : public testing::TestWithParam<std::string_view> {};

TEST_P(FilterRefusal, IsError3001) {
  Filter filter;
  EXPECT_EQ(errorOf([&filter] { filter.read(GetParam()); }), number(ErrorNumber::WrongArguments));
}

INSTANTIATE_TEST_SUITE_P(Cases, FilterRefusal,
                         testing::Values("(a=1 OR b=2) AND c=3", "c=3 AND (a=1 OR b=2)", "((a=1 OR b=2)) AND c=3",
                                         "(a=1 AND (b=2 OR c=3)) OR d=4", "a", "a=", "=1", "a==1", "a=1 AND", "a=1 OR",
                                         "OR a=1", "a=1 b=2", "a=abc", "a='abc", "a='abc''", "(a=1", "a=1)", "()",
                                         "a=b", "a<NULL", "a LIKE NULL", "a LIKE 5", "a LIKE '*ab'", "a LIKE 'a*b'",
                                         "a LIKE 'ab**'", "a LIKE '***'", "a IN (1,2)", "NOT a=1", "a IS NULL",
                                         "a=#abc#", "a=#2010-13-45#", "a=#2010-12-31", "[a=1", "[]=1", "a=1+2", "a=-",
                                         "a=$", "a=1e999", "a=--1", "a='x';", " ", "a BETWEEN 1 AND 2"));

TEST(FilterReader, RefusesParenthesesWithoutEndInsteadOfRunningOutOfStack) {
  Filter filter;
  const std::string deep(1'000'000, '(');
  EXPECT_EQ(errorOf([&] { filter.read(deep + "a=1"); }), number(ErrorNumber::WrongArguments));
}

TEST(FilterReader, KeepsTheTextAsItWasSet) {
  Filter filter;
  filter.read("a = 'it''s'");
  EXPECT_EQ(filter.text(), "a = 'it''s'");
}

// --- matching -------------------------------------------------------------------------------------------

struct MatchCase {
  std::string name;
  ColumnType type;
  Variant value;
  std::string criteria;
  bool matches;
};

class FilterMatch : public testing::TestWithParam<MatchCase> {};

TEST_P(FilterMatch, GoesByTheColumnsType) {
  const auto columns = std::make_shared<const Columns>(std::vector<Column>{{.name = "V", .type = GetParam().type}});
  TableRows rows(columns);
  rows.set(rows.append(), 0, GetParam().value);
  Filter filter;
  filter.read(GetParam().criteria);
  RowCriteria criteria;
  criteria.bind(filter, rows.columns());
  EXPECT_EQ(criteria.match(rows, 0), GetParam().matches) << GetParam().criteria;
}

const Date lastOf2010 = Date::fromYmd(2010, 12, 31);

INSTANTIATE_TEST_SUITE_P(
    Cases, FilterMatch,
    testing::Values(MatchCase{"TextWithoutCase", ColumnType::Text, "Abc", "v = 'aBC'", true},
                    MatchCase{"TextOfOtherLettersWithoutCase", ColumnType::Text, "Caf\u00C9", "V = 'caf\u00E9'", true},
                    MatchCase{"TextOfOtherLength", ColumnType::Text, "Abc", "V = 'Abcd'", false},
                    MatchCase{"TextKeepsItsBlanks", ColumnType::Text, "Abc ", "V = 'Abc'", false},
                    MatchCase{"TextDiffers", ColumnType::Text, "Abc", "V <> 'ABC'", false},
                    MatchCase{"TextIsBehind", ColumnType::Text, "b", "V > 'A'", true},
                    MatchCase{"TextIsInFront", ColumnType::Text, "B", "V < 'a'", false},
                    MatchCase{"TextBegins", ColumnType::Text, "000001/PPH4", "V LIKE '000001/p*'", true},
                    MatchCase{"TextBeginsOtherwise", ColumnType::Text, "000001", "V LIKE '0000010*'", false},
                    MatchCase{"TextContains", ColumnType::Text, "xAbCx", "V LIKE '%abc%'", true},
                    MatchCase{"AnyTextContainsNothing", ColumnType::Text, "", "V LIKE '**'", true},
                    MatchCase{"BareNumberAgainstText", ColumnType::Text, "12", "V = 12", true},
                    MatchCase{"BareNumberAgainstTextWithZeros", ColumnType::Text, "012", "V = 12", false},
                    MatchCase{"NumberEqual", ColumnType::Long, 5, "V = 5", true},
                    MatchCase{"NumberQuoted", ColumnType::Long, 5, "V = '5'", true},
                    MatchCase{"NumberGreater", ColumnType::Double, 1.5, "V > 1.25", true},
                    MatchCase{"NumberAtMost", ColumnType::Double, 1.5, "V <= 1.5", true},
                    MatchCase{"NegativeZero", ColumnType::Double, -0.0, "V = 0", true},
                    MatchCase{"PatternAgainstANumber", ColumnType::Long, 123, "V LIKE '12*'", true},
                    MatchCase{"DateEqual", ColumnType::Date, lastOf2010, "V = #2010-12-31#", true},
                    MatchCase{"DateBefore", ColumnType::Date, lastOf2010, "V < #2011-01-01#", true},
                    MatchCase{"DateQuotedByTheSettings", ColumnType::Date, lastOf2010, "V = '31/12/2010'", true},
                    MatchCase{"BooleanAsAWord", ColumnType::Boolean, true, "V = True", true},
                    MatchCase{"BooleanAsAnyNumber", ColumnType::Boolean, true, "V = 1", true},
                    MatchCase{"BooleanFalse", ColumnType::Boolean, false, "V = 0", true},
                    MatchCase{"NullMatchesNoValue", ColumnType::Text, Variant::null(), "V = ''", false},
                    MatchCase{"NullIsNotDifferentEither", ColumnType::Text, Variant::null(), "V <> 'a'", false},
                    MatchCase{"NullIsNotLike", ColumnType::Text, Variant::null(), "V LIKE '*'", false},
                    MatchCase{"NullIsNotLess", ColumnType::Long, Variant::null(), "V < 5", false},
                    MatchCase{"NullIsNull", ColumnType::Text, Variant::null(), "V = NULL", true},
                    MatchCase{"ValueIsNotNull", ColumnType::Text, "", "V = NULL", false},
                    MatchCase{"ValueDiffersFromNull", ColumnType::Text, "", "V <> NULL", true},
                    MatchCase{"AnyTextAgainstText", ColumnType::Any, "05", "V = '5'", false},
                    MatchCase{"AnyTextAgainstNumber", ColumnType::Any, "05", "V = 5", true},
                    MatchCase{"AnyNumberAgainstText", ColumnType::Any, 5.0, "V = '05'", true},
                    MatchCase{"AnyTextThatIsNoNumber", ColumnType::Any, "abc", "V = 5", false},
                    MatchCase{"AnyTextThatIsNoNumberDiffers", ColumnType::Any, "abc", "V <> 5", true},
                    MatchCase{"AnyDateAgainstText", ColumnType::Any, lastOf2010, "V = '31/12/2010'", true}),
    [](const auto& one) { return one.param.name; });

class FilterValueRefusal : public testing::TestWithParam<std::pair<ColumnType, std::string_view>> {};

TEST_P(FilterValueRefusal, IsError3001WhenTheValueCannotBecomeTheColumnsType) {
  const Columns columns({{.name = "V", .type = GetParam().first}});
  Filter filter;
  filter.read(GetParam().second);
  RowCriteria criteria;
  EXPECT_EQ(errorOf([&] { criteria.bind(filter, columns); }), number(ErrorNumber::WrongArguments));
}

INSTANTIATE_TEST_SUITE_P(Cases, FilterValueRefusal,
                         testing::Values(std::pair(ColumnType::Long, "V = 'abc'"),
                                         std::pair(ColumnType::Long, "V = ''"),
                                         std::pair(ColumnType::Date, "V = '31/13/2010 x'"),
                                         std::pair(ColumnType::Boolean, "V = 'maybe'")));

TEST(FilterBinding, FindsNamesWithoutRegardToCaseAndFailsWith3265ForUnknownOnes) {
  const Columns columns({{.name = "KD_FORM", .type = ColumnType::Text}});
  Filter filter;
  RowCriteria criteria;
  filter.read("kd_Form = 'x'");
  EXPECT_NO_THROW(criteria.bind(filter, columns));
  filter.read("KD_FORMS = 'x'");
  EXPECT_EQ(errorOf([&] { criteria.bind(filter, columns); }), number(ErrorNumber::ItemNotFound));
}

}  // namespace
}  // namespace tarvola::ado
