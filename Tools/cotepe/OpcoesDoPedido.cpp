#include "OpcoesDoPedido.h"

#include "Idioma/Idioma.h"
#include "Valores.h"

namespace cotepe::programa {
namespace {

// The program's own commands in upper or lower case; any other one exactly as it was given to whatever
// generated the report.
CLI::Validator comandoDado() {
  const CLI::Validator conhecido = comandoDoEcf();
  return {[conhecido](std::string& texto) { return static_cast<void>(conhecido(texto)), std::string(); }, ""};
}

}  // namespace

void declaraIdentidade(CLI::App& comando, Identidade& identidade) {
  comando.add_option("--serial", identidade.serial, traduz("Manufacture number, if the database has none"))
      ->type_name("TEXT");
  comando.add_option("--model", identidade.modelo, traduz("Model, if the database has none"))
      ->type_name("TEXT");
  comando.add_option("--type", identidade.tipo, traduz("Type, if the database has none"))->type_name("TEXT");
}

void declaraPedido(CLI::App& comando, OpcoesDoPedido& o) {
  declaraPeriodo(comando, o.periodo, traduz("First day, as DD/MM/YYYY or YYYY-MM-DD"));
  comando.add_option("--command", o.comando, traduz("The command as generate was given it"))
      ->type_name("COMMAND")
      ->transform(comandoDado());
  comando.add_option("--layout", o.leiaute, traduz("Layout version"))
      ->type_name("VERSION")
      ->transform(escolha({"1", "2", "3"}));
  comando.add_flag_callback(
      "--cat52", [&o] { o.cat52 = true; }, traduz("CAT52 mode"));
  comando.add_flag_callback(
      "--no-cat52", [&o] { o.cat52 = false; }, traduz("No CAT52 mode"));
  declaraIdentidade(comando, o.identidade);
}

PedidoParcial OpcoesDoPedido::dado() const {
  const PeriodoPedido pedido = periodoPedido(periodo);
  return {pedido.de, pedido.ate, comando, leiaute, cat52};
}

}  // namespace cotepe::programa
