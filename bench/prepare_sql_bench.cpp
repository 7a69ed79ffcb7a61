// How many statements are prepared in a second, and how long that takes beside the engine's own parsing of the result.
#include <benchmark/benchmark.h>

#include <array>

#include "bare.h"
#include "data/statements.h"
#include "database/prepare_sql.h"
#include "lookup/list_catalogue.h"
#include "recording.h"

namespace {

void PrepareStatements(benchmark::State& state) {
  bench::Subject subject(10);
  bench::Bare engine(subject.Path());
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
  double parsing = 0;
  std::int64_t count = 0;
  for (auto _ : state) {
    for (const std::string& text : texts) {
      std::string prepared;
      translating += bench::Time([&] { prepared = host::PrepareSqlite(text); });
      parsing += bench::Time([&] { engine.Prepare(prepared); });
      ++count;
    }
  }
  state.counters["prepared_per_second"] = static_cast<double>(count) / translating;
  state.counters["translating_to_parsing"] = translating / parsing;
}
BENCHMARK(PrepareStatements);

}  // namespace
