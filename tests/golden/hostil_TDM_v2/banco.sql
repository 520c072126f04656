.read ../esquema.sql
.read ../hostil.sql
