// What the bytes of a field say.
#include <gtest/gtest.h>

#include "Leiaute/NumeroFiscal.h"
#include "Leiaute/Releitura.h"

namespace cotepe {
namespace {

TEST(Releitura, NumbersAreDigitsAlone) {
  for (std::size_t n = 1; n <= 20; ++n) {
    const std::string digitos(n, '7');
    EXPECT_TRUE(soDigitos(digitos)) << n;
    for (std::size_t i = 0; i < n; ++i)
      for (const char c : std::string("/: -\0\xFF", 6)) {
        std::string outros = digitos;
        outros[i] = c;
        EXPECT_FALSE(soDigitos(outros)) << n << ' ' << i << ' ' << static_cast<int>(c);
      }
  }
}

TEST(Releitura, BlanksAreBlanksAlone) {
  EXPECT_TRUE(soBrancos(""));
  for (std::size_t n = 1; n <= 20; ++n) {
    const std::string brancos(n, ' ');
    EXPECT_TRUE(soBrancos(brancos)) << n;
    for (std::size_t i = 0; i < n; ++i)
      for (const char c : std::string("!0\0", 3)) {
        std::string outros = brancos;
        outros[i] = c;
        EXPECT_FALSE(soBrancos(outros)) << n << ' ' << i << ' ' << static_cast<int>(c);
      }
  }
}

TEST(Releitura, NumbersAreReadWholeUpTo64Bits) {
  std::int64_t valor = -1;
  EXPECT_TRUE(leNumero("000000000000123456", valor));
  EXPECT_EQ(valor, 123456);
  EXPECT_TRUE(leNumero("9223372036854775807", valor));
  EXPECT_EQ(valor, 9223372036854775807);
  valor = 5;
  EXPECT_FALSE(leNumero("9223372036854775808", valor));
  EXPECT_FALSE(leNumero("9999999999999999999", valor));
  EXPECT_FALSE(leNumero("", valor));
  EXPECT_FALSE(leNumero("12 ", valor));
  EXPECT_FALSE(leNumero("-1", valor));
  EXPECT_EQ(valor, 5);
}

TEST(Releitura, DaysAreThoseOfTheCalendar) {
  for (const char* dia : {"20240229", "20000229", "20230228", "00010101", "99991231", "20240430"})
    EXPECT_TRUE(dataPossivel(dia)) << dia;
  for (const char* dia : {"20230229", "19000229", "20240431", "20241301", "20240001", "20240100", "00000101",
                          "2024010", "2024 101", "        ", "202401010"})
    EXPECT_FALSE(dataPossivel(dia)) << dia;
}

TEST(Releitura, EveryMonthHasItsLastDay) {
  for (const char* dia : {"20230131", "20230228", "20230331", "20230430", "20230531", "20230630", "20230731",
                          "20230831", "20230930", "20231031", "20231130", "20231231"})
    EXPECT_TRUE(dataPossivel(dia)) << dia;
  for (const char* dia : {"20230132", "20230229", "20230332", "20230431", "20230532", "20230631", "20230732",
                          "20230832", "20230931", "20231032", "20231131", "20231232"})
    EXPECT_FALSE(dataPossivel(dia)) << dia;
}

TEST(Releitura, HoursAreThoseOfTheDay) {
  for (const char* hora : {"000000", "235959", "120000"}) EXPECT_TRUE(horaPossivel(hora)) << hora;
  for (const char* hora : {"240000", "126000", "120060", "12000", "      ", "12:000"})
    EXPECT_FALSE(horaPossivel(hora)) << hora;
}

TEST(Releitura, EachKindHasItsDefects) {
  EXPECT_EQ(defeito(Especie::Contador, "000123"), Defeito::Nenhum);
  EXPECT_EQ(defeito(Especie::Dinheiro, "00001 3"), Defeito::Digitos);
  EXPECT_EQ(defeito(Especie::Data, "        "), Defeito::Nenhum);
  EXPECT_EQ(defeito(Especie::Data, "20230229"), Defeito::Data);
  EXPECT_EQ(defeito(Especie::Data, "2023022 "), Defeito::Data);
  EXPECT_EQ(defeito(Especie::HoraPronta, "250000"), Defeito::Hora);
  EXPECT_EQ(defeito(Especie::Texto, "~ texto  "), Defeito::Nenhum);
  EXPECT_EQ(defeito(Especie::Texto, "         "), Defeito::Nenhum);
  EXPECT_EQ(defeito(Especie::Texto, " texto   "), Defeito::Alinhamento);
}

TEST(Releitura, ATextThatIsNotThereHasNoDefect) { EXPECT_EQ(defeito(Especie::Texto, ""), Defeito::Nenhum); }

TEST(Releitura, TextIsSeenByteByByteWhereverItStands) {
  for (std::size_t n = 1; n <= 20; ++n)
    for (std::size_t i = 0; i < n; ++i) {
      std::string texto(n, 'A');
      texto[i] = '\x1F';
      EXPECT_EQ(defeito(Especie::Texto, texto), Defeito::Controle);
      texto[i] = '\x7F';
      EXPECT_EQ(defeito(Especie::Texto, texto), Defeito::Controle);
      texto[i] = '\x80';
      EXPECT_EQ(defeito(Especie::Texto, texto), Defeito::NaoAscii);
      texto[i] = '\xFF';
      EXPECT_EQ(defeito(Especie::Texto, texto), Defeito::NaoAscii);
      texto[i] = '~';
      EXPECT_EQ(defeito(Especie::Texto, texto), Defeito::Nenhum);
    }
}

TEST(NumeroFiscal, CheckDigits) {
  EXPECT_TRUE(cnpjValido("11222333000181"));
  EXPECT_FALSE(cnpjValido("11222333000182"));
  EXPECT_FALSE(cnpjValido("11222333000191"));
  EXPECT_TRUE(cpfValido("00052998224725"));
  EXPECT_TRUE(cpfValido("00011144477735"));
  EXPECT_FALSE(cpfValido("00052998224726"));
  EXPECT_FALSE(cpfValido("00052998224735"));
  EXPECT_FALSE(cpfValido("00152998224725"));
  EXPECT_FALSE(cpfValido("52998224725")) << "eleven digits, without the zeros of the field";
}

}  // namespace
}  // namespace cotepe
