// How many statements are prepared in a second, how long that takes beside the engine's own parsing of the result, and
// how the time grows with the text.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "bare.h"
#include "data/statements.h"
#include "database/dialect/prepare_sql.h"
#include "lookup/list_catalogue.h"
#include "recording.h"

namespace {

void PrepareStatements(benchmark::State& state) {
  bench::Subject subject(10);
  bench::Bare engine(subject.Url());
  const data::Statements statements(subject.Session());
  const std::array texts = {
      lookup::DefinitionOf(session::lulEmployee, statements).sql.Text(),
      lookup::DefinitionOf(session::lulRecallMaster, statements).sql.Text(),
      std::string("SELECT * FROM PATable WHERE pID=12"),
      std::string("UPDATE Patable SET pLASNAM='O''Brien', pBIRDAT=#01/02/1980# WHERE pID=12"),
      std::string("Select Top 200 * from ZipCodTable where ZipCodCit>='Spr' order by ZipCodCit,ZipCodZip;"),
      std::string(
          "Select * from Patable where pLASNAM Like \"Smi%\" and pFIRNAM Like \"J%\" order by pLasNam, pFirNam"),
  };
  double translating = 0;
  double for_postgres = 0;
  double parsing = 0;
  std::int64_t count = 0;
  for (auto _ : state) {
    for (const std::string& text : texts) {
      std::string prepared;
      translating += bench::Time([&] { prepared = host::PrepareSqlite(text); });
      for_postgres += bench::Time([&] { benchmark::DoNotOptimize(host::PreparePostgres(text)); });
      parsing += bench::Time([&] { engine.Prepare(prepared); });
      ++count;
    }
  }
  state.counters["prepared_per_second"] = static_cast<double>(count) / translating;
  state.counters["translating_to_parsing"] = translating / parsing;
  state.counters["postgres_to_sqlite"] = for_postgres / translating;
}
BENCHMARK(PrepareStatements);

// A statement with a part that comes as often as one likes, and what closes each.
struct Shape {
  std::string_view begins;
  std::string_view part;
  std::string_view closes = {};

  std::string Text(int parts) const {
    std::string text(begins);
    for (const std::string_view repeated : {part, closes}) {
      for (int i = 0; i < parts; ++i) {
        text += repeated;
      }
    }
    return text;
  }
};

// What a character of a long text takes, relative to one of a text of a sixteenth its length: the worst of all shapes.
void PrepareLongTexts(benchmark::State& state) {
  constexpr std::array kShapes = {
      Shape{"SELECT pLASNAM", "+', '+TAVOWIN.DBO.PATable.pFIRNAM"},
      Shape{"SELECT ", "(", "pLASNAM)+pFIRNAM"},
      Shape{"SELECT ", "''+cast(''+", "1 as nvarchar)"},
      Shape{"SELECT * FROM T WHERE 1", " AND a IN (SELECT TOP 1 b FROM T WHERE 1", ")"},
      Shape{"SELECT * FROM T", " OUTER APPLY (SELECT * FROM S WHERE S.a=T.a) s"},
      Shape{"SELECT * FROM T WHERE 1", " OR a='\u00dc' OR b Like '5[%]'"},
      Shape{"SELECT * FROM T WHERE a Like '[", "[", "%'"},
      Shape{"SELECT * FROM T WHERE a=", "#1/2/1980 ", "#"},
      Shape{"UPDATE T SET T.a=1", ", T.a=newid()"},
      Shape{"UPDATE T SET a=1 FROM T", " INNER JOIN S ON S.a=T.a"},
      Shape{"INSERT INTO T (a, b) VALUES (0, 0)", ", (GLOBAL, @@IDENTITY)"},
      Shape{"CREATE TABLE T (a int", ", a nvarchar(40)"},
      Shape{"SET @a=1", "; SET @b=@a+1; SELECT @b"},
      Shape{"SELECT DISTINCT a", ", pLASNAM AS a", " FROM T ORDER BY b"},
      Shape{"SELECT a FROM T ORDER BY b", ", pLASNAM+pID DESC"},
      Shape{"SELECT a FROM T WHERE a=1", " OR pLASNAM Like 'Smi%' OR pZIP IN (1, '') OR pID BETWEEN '' AND 5"},
      Shape{"SELECT a=", "COALESCE(", "a, '')=pZIP"},
  };
  constexpr int kParts = 100;
  constexpr int kTimes = 16;
  const auto best = [](std::string (*prepare)(std::string_view), const std::string& text) {
    double least = 1;
    for (int i = 0; i < 5; ++i) {
      least = std::min(least, bench::Time([&] { benchmark::DoNotOptimize(prepare(text)); }));
    }
    return least / static_cast<double>(text.size());
  };
  double worst = 0;
  for (auto _ : state) {
    for (const Shape& shape : kShapes) {
      for (auto* prepare : {host::PrepareSqlite, host::PreparePostgres}) {
        worst = std::max(worst, best(prepare, shape.Text(kTimes * kParts)) / best(prepare, shape.Text(kParts)));
      }
    }
  }
  state.counters["long_to_short"] = worst;
}
BENCHMARK(PrepareLongTexts)->Iterations(1);

}  // namespace
