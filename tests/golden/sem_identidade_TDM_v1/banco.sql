.read ../esquema.sql
.read ../sem_usuarios.sql
