#error "forms to entry see no toolkit, platform or engine"
